// What the self-test of tools/mutate changes.

#include "tools/mutation/sample/sample.h"

namespace strandline_mutants_sample {

namespace {

constexpr int kEach = 4;
constexpr int kSpare = 3;
int touched = 0;

void Touch() { touched += 1; }

}  // namespace

int Price(int pieces) {
  if (pieces < 2) return 0;
  return pieces * kEach;
}

Size SizeOf(char sign) {
  switch (sign) {
    case 's':
      return Size::kSmall;
    case 'x':
      return Size::kLarge;
  }
  return Size::kLarge;
}

int Rounds(bool isQuick) {
  int left = isQuick ? 1 : kSpare;
  int rounds = 0;
  while (left > 0) {
    --left;
    ++rounds;
  }
  return rounds;
}

void Count(int& counted) {
  counted = 0;
  Touch();
  counted = Forgotten();
}

}  // namespace strandline_mutants_sample
