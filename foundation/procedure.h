#pragma once

// The shape of every procedure of the library.
//
//   Boolean Buttons::inCtrl(Integer index, Integer x, Integer y) {
//     METHOD(Boolean, u"inCtrl", index, x, y);
//     REPORTS(cell);                                  // the locals, for a dump
//     STEP(cell = mButtons(index - 1));               // a statement that can raise
//     …
//     return here.result = true;
//   }
//
// PROCEDURE (in a module) or METHOD (in a class) announces the procedure to vbwProtector and takes it off again on
// every way out; METHOD also keeps the object alive. STEP wraps a statement that can itself raise; calls of our own
// procedures need none, for a procedure's errors end in its own tail. On an error the tail asks the error component:
// run the statement again, go on behind it (what it would have assigned stays), write a dump and ask again, end the
// thread, or leave the procedure with its result as far as it was set.
//
// A long procedure may keep a stretch of itself in a function of its own. It begins with STRETCH, is given the
// procedure's frame, ends with here.Done(), and is run with RUN: an error in it is the procedure's.
//
// Deviations, each with its word: here.IgnoreErrors() and here.EndQuietly() from that statement on, for the
// procedure's own statements alone; ATTEMPT(label, …) for a statement whose error jumps to a label. CONDITION declares
// a Boolean and computes it; where that raises and execution goes on, the block behind it is entered, because its first
// statement is the next one.

#include <exception>
#include <new>

#include "foundation/class_object.h"
#include "foundation/vbwProtector.h"

namespace strandline {

class Frame {
 public:
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;

  void IgnoreErrors() { mMode = Mode::kIgnore; }
  void EndQuietly() { mMode = Mode::kEnd; }
  void ReportErrors() { mMode = Mode::kTail; }

  // The last error that was ignored or that took a jump, here or in a procedure called since; number 0 when there was
  // none. A copy, for the next one takes its place.
  static Error LastError() { return vbwProtector::lastError; }
  static void ClearError() { vbwProtector::lastError = {}; }

  // Runs one statement. False: leave the procedure.
  template <class Body>
  [[gnu::always_inline]] inline bool Step(Body&& body, Long line = __builtin_LINE()) {
    for (;;) {
      try {
        body();
        return true;
      } catch (const Error& error) {
        const Resume resume = Failed(error, line);
        if (resume != Resume::kAgain) return resume == Resume::kNext;
      } catch (const std::bad_alloc&) {
        const Resume resume = FailedForMemory(line);
        if (resume != Resume::kAgain) return resume == Resume::kNext;
      }
    }
  }

  // Runs one statement. False: it raised, and nobody was asked.
  template <class Body>
  [[gnu::always_inline]] inline bool Attempt(Body&& body) {
    try {
      body();
      return true;
    } catch (const Error& error) {
      vbwProtector::lastError = error;
    } catch (const std::bad_alloc&) {
      NoteOutOfMemory();
    }
    return false;
  }

 protected:
  using ReportFunction = void (*)(const void* reports, Reporter& to);

  template <class Parameters>
  [[gnu::always_inline]] inline Frame(const ProcedureName& name, const Parameters& parameters)
      : mName(name), mParameters(&parameters), mReportParameters(&CallReports<Parameters>) {
    if (!vbwProtector::variables.vbwTraceProc) return;
    if (vbwProtector::variables.vbwTraceParameters) [[unlikely]] {
      // A copy goes out, so that in an ordinary run nothing of the list has to stand in memory.
      const Parameters copy = parameters;
      mLevel = EnterWithParameters(name, &CallReports<Parameters>, &copy);
    } else {
      mLevel = vbwProtector::vbwProcIn(name);
    }
  }
  // For the one procedure that can't announce itself.
  struct Uncounted {};
  template <class Parameters>
  Frame(const ProcedureName& name, const Parameters& parameters, Uncounted)
      : mName(name), mParameters(&parameters), mReportParameters(&CallReports<Parameters>) {}

  [[gnu::always_inline]] inline ~Frame() {
    if (mLevel != 0) vbwProtector::vbwProcOut(mName, mLevel);
  }

  template <class Reports>
  static void CallReports(const void* reports, Reporter& to) {
    (*static_cast<const Reports*>(reports))(to);
  }

  const ProcedureName& mName;
  const ClassObject* mSelf = nullptr;
  const void* mParameters;
  ReportFunction mReportParameters;
  const void* mLocals = nullptr;
  ReportFunction mReportLocals = nullptr;

 private:
  enum class Mode { kTail, kIgnore, kEnd };
  enum class Resume { kAgain, kNext, kLeave };

  static Integer EnterWithParameters(const ProcedureName& name, ReportFunction report, const void* parameters);
  Resume Failed(const Error& error, Long line);
  Resume FailedForMemory(Long line);
  static void NoteOutOfMemory();
  Resume Tail(Error error, Long line);
  void WriteDump(const Error& error);

  Integer mLevel = 0;  // of this procedure on the stack, 0 when it isn't kept
  Mode mMode = Mode::kTail;
};

template <class Result>
class Procedure : public Frame {
 public:
  template <class Parameters>
  [[gnu::always_inline]] inline Procedure(const ProcedureName& name, const Parameters& parameters)
      : Frame(name, parameters) {}

  template <class Locals>
  void Reports(const Locals& locals) {
    mLocals = &locals;
    mReportLocals = &CallReports<Locals>;
  }

  Result Leave() { return std::move(result); }
  Result result{};
};

template <>
class Procedure<void> : public Frame {
 protected:
  template <class Parameters>
  Procedure(const ProcedureName& name, const Parameters& parameters, Uncounted uncounted)
      : Frame(name, parameters, uncounted) {}

 public:
  template <class Parameters>
  [[gnu::always_inline]] inline Procedure(const ProcedureName& name, const Parameters& parameters)
      : Frame(name, parameters) {}

  template <class Locals>
  void Reports(const Locals& locals) {
    mLocals = &locals;
    mReportLocals = &CallReports<Locals>;
  }

  void Leave() {}
};

// A procedure of a class: the object outlives it, whatever the procedure brings about.
template <class Result>
class Method : public Procedure<Result> {
 public:
  template <class Parameters>
  [[gnu::always_inline]] inline Method(const ProcedureName& name, const ClassObject* self, const Parameters& parameters)
      : Procedure<Result>(name, parameters), mKeep(self) {
    this->mSelf = self;
  }

 private:
  Ref<const ClassObject> mKeep;
};

}  // namespace strandline

namespace strandline {

// The frame of a procedure as a stretch of it sees it.
class Stretch {
 public:
  explicit Stretch(Frame& frame) : mFrame(frame) {}
  template <class Body>
  [[gnu::always_inline]] inline bool Step(Body&& body, Long line = __builtin_LINE()) {
    return mFrame.Step(std::forward<Body>(body), line);
  }
  static Boolean Leave() { return false; }
  static Boolean Done() { return true; }

 private:
  Frame& mFrame;
};

}  // namespace strandline

#define STRANDLINE_REPORT(...) \
  [&]([[maybe_unused]] ::strandline::Reporter& to_) { to_.List(#__VA_ARGS__ __VA_OPT__(, ) __VA_ARGS__); }

// Both want a `kModule`, the ModuleFile of their source file, in sight.
#define PROCEDURE(type, name, ...)                                         \
  static constexpr ::strandline::ProcedureName procedure_{&kModule, name}; \
  const auto parameters_ = STRANDLINE_REPORT(__VA_ARGS__);                 \
  ::strandline::Procedure<type> here(procedure_, parameters_)
#define METHOD(type, name, ...)                                            \
  static constexpr ::strandline::ProcedureName procedure_{&kModule, name}; \
  const auto parameters_ = STRANDLINE_REPORT(__VA_ARGS__);                 \
  ::strandline::Method<type> here(procedure_, this, parameters_)

#define REPORTS(...)                                   \
  const auto locals_ = STRANDLINE_REPORT(__VA_ARGS__); \
  here.Reports(locals_)

#define STRETCH(procedure) ::strandline::Stretch here(procedure)
#define RUN(...) \
  if (!(__VA_ARGS__)) return here.Leave()

#define STEP(...) \
  if (!here.Step([&] { __VA_ARGS__; })) return here.Leave()
#define ATTEMPT(label, ...) \
  if (!here.Attempt([&] { __VA_ARGS__; })) goto label
#define CONDITION(name, ...) \
  Boolean name = true;       \
  STEP(name = __VA_ARGS__)
