#pragma once

// What tools/mutate writes into the sources. Each mutant is a switch with a number: at most one is on in a process, and
// each tells that the run came past it. In what the compiler computes nothing is switched.

#include <type_traits>

namespace strandline_mutants {

inline constexpr int kMost = 1 << 18;

extern int active;  // 0: none
extern unsigned char* reached;

// The number of a switch where nothing is ever computed by the compiler. Seeing a call that it can't compute, clang
// doesn't take both arms of a ?: for constants that may be computed beforehand.
inline int InRun(int id) { return id; }

constexpr bool On(int id) {
  if (std::is_constant_evaluated()) return false;
  reached[id] = 1;
  return active == id;
}

template <class T>
constexpr bool Not(int id, const T& value) {
  return static_cast<bool>(value) != On(id);
}

// A constant, moved by one.
template <class T>
constexpr T Moved(int id, T value) {
  if (!On(id)) return value;
  if constexpr (std::is_same_v<T, bool>) {
    return !value;
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(static_cast<std::underlying_type_t<T>>(value) + 1);
  } else {
    return static_cast<T>(value + 1);
  }
}

// The value that a switch looks at; one label is moved by one.
template <class T, class Label>
constexpr T Labelled(int id, T value, Label label) {
  if (!On(id)) return value;
  if (value == static_cast<T>(label)) return static_cast<T>(0x5ADBAD);
  if (value == static_cast<T>(static_cast<long long>(label) + 1)) return static_cast<T>(label);
  return value;
}

// a < b becomes a < At(id) < b, whatever stands around it.
struct At {
  int id;
  explicit constexpr At(int theId) : id(theId) {}
};

template <class A>
struct Left {
  const A& value;
  int id;
};

#define STRANDLINE_MUTANTS_COMPARISON(sign, other)                           \
  template <class A>                                                         \
  constexpr Left<A> operator sign(const A& a, At at) {                       \
    return {a, at.id};                                                       \
  }                                                                          \
  template <class A, class B>                                                \
  constexpr bool operator sign(Left<A> left, const B& b) {                   \
    return On(left.id) ? bool(left.value other b) : bool(left.value sign b); \
  }
STRANDLINE_MUTANTS_COMPARISON(<, <=)
STRANDLINE_MUTANTS_COMPARISON(<=, <)
STRANDLINE_MUTANTS_COMPARISON(>, >=)
STRANDLINE_MUTANTS_COMPARISON(>=, >)
STRANDLINE_MUTANTS_COMPARISON(==, !=)
STRANDLINE_MUTANTS_COMPARISON(!=, ==)
#undef STRANDLINE_MUTANTS_COMPARISON

}  // namespace strandline_mutants
