#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "platform/desk/desk_dictionary.h"
#include "platform/wrappers/failing.h"
#include "platform/wrappers/operations.h"
#include "platform/wrappers/recording.h"

namespace strandline {
namespace {

using Log = std::vector<std::string>;

// What a fake gives back where the type has more than its default.
template <class T>
T Something() {
  if constexpr (std::is_same_v<T, Long> || std::is_same_v<T, Double>) return T{7};
  if constexpr (std::is_same_v<T, Boolean>) return true;
  if constexpr (std::is_same_v<T, String>) return u"something";
  if constexpr (std::is_same_v<T, Date>) return Date{5};
  if constexpr (std::is_same_v<T, Object> || std::is_same_v<T, Ref<Dictionary>>) return New<desk::DeskDictionary>();
  static Byte byte = 0;
  if constexpr (std::is_pointer_v<T>) return &byte;
  return T();
}

// A service that notes by which call it was reached.
template <class Interface>
class Fake : public Interface {
 public:
  Log calls;

 protected:
  template <class Result>
  Result Reached(const char* name) {
    calls.push_back(name);
    if constexpr (!std::is_void_v<Result>) return Something<Result>();
  }
};

// std::tie uses the parameters, in which a fake has no interest.
#define OPERATION(kind, Result, failure, Name, hint, parameters, arguments, noted) \
  Result Name parameters override {                                                \
    (void)std::tie arguments;                                                      \
    return this->template Reached<Result>(#Name);                                  \
  }
class FakeWindows : public Fake<Windows> {
 public:
#include "platform/wrappers/windows_operations.inc"
};
class FakeGraphics : public Fake<Graphics> {
 public:
#include "platform/wrappers/graphics_operations.inc"
};
class FakePictures : public Fake<Pictures> {
 public:
#include "platform/wrappers/pictures_operations.inc"
};
class FakeModules : public Fake<Modules> {
 public:
#include "platform/wrappers/modules_operations.inc"
};
class FakeComponents : public Fake<Components> {
 public:
#include "platform/wrappers/components_operations.inc"
};
class FakeRunTime : public Fake<RunTime> {
 public:
#include "platform/wrappers/runtime_operations.inc"
};
class FakeClipboard : public Fake<Clipboard> {
 public:
#include "platform/wrappers/clipboard_operations.inc"
};
#undef OPERATION

class Recorder : public CallRecorder {
 public:
  void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) override {
    names.emplace_back(call);
    lastArguments.assign(arguments.begin(), arguments.end());
    lastResult = result;
  }
  Log names;
  std::vector<CallArgument> lastArguments;
  CallArgument lastResult;
};

// Calls an operation with default arguments; a text that is pointed to isn't there.
template <class Interface, class Result, class... Parameters>
Result CallByDefault(Interface& target, Result (Interface::*operation)(Parameters...)) {
  std::tuple<std::remove_cvref_t<Parameters>...> arguments{};
  return std::apply([&](auto&... each) { return (target.*operation)(each...); }, arguments);
}

// The error by which an operation tells that it failed; 0 for one that has a value for it.
Long ErrorOfFailing(const std::string& name) {
  if (name == "CreateObject" || name == "CreateDictionary") return errors::kCannotCreateComponent;
  if (name == "DateFromText" || name == "TextFromDate") return errors::kTypeMismatch;
  return name == "GetText" || name == "SetText" || name == "SetPicture" ? errors::kCannotOpenClipboard : 0;
}

// The body for one operation of the three wrappers around one fake.
template <class Interface, class FakeOf, class ForwardingOf, class RecordingOf, class FailingOf>
struct Wrapped {
  FakeOf fake;
  Faults faults;
  Recorder recorder;
  ForwardingOf forwarding{fake};
  RecordingOf recording{fake, &recorder};
  FailingOf failing{fake, faults};

  template <class Result, class... Parameters>
  void Check(const char* name, Result (Interface::*operation)(Parameters...)) {
    SCOPED_TRACE(name);
    for (Interface* wrapper : {static_cast<Interface*>(&forwarding), static_cast<Interface*>(&recording),
                               static_cast<Interface*>(&failing)}) {
      fake.calls.clear();
      recorder.names.clear();
      if constexpr (std::is_void_v<Result>) {
        CallByDefault(*wrapper, operation);
      } else if constexpr (!std::is_same_v<Result, Object> && !std::is_same_v<Result, Ref<Dictionary>> &&
                           !std::is_pointer_v<Result>) {
        EXPECT_EQ(CallByDefault(*wrapper, operation), Something<Result>());
      } else {
        EXPECT_TRUE(CallByDefault(*wrapper, operation) != Result());
      }
      EXPECT_EQ(fake.calls, Log{name});
      EXPECT_EQ(recorder.names, wrapper == &recording ? Log{name} : Log());
    }
    CheckFailure(name, operation);
    recording.SetRecorder(nullptr);
    recorder.names.clear();
    fake.calls.clear();
    CallByDefault<Interface>(recording, operation);
    EXPECT_EQ(fake.calls, Log{name});
    EXPECT_EQ(recorder.names, Log());
    recording.SetRecorder(&recorder);
  }

  template <class Result, class... Parameters>
  void CheckFailure(const char* name, Result (Interface::*operation)(Parameters...)) {
    fake.calls.clear();
    faults.Arm(name, 1);
    Long raised = 0;
    try {
      if constexpr (std::is_void_v<Result>) {
        CallByDefault<Interface>(failing, operation);
      } else {
        EXPECT_TRUE(CallByDefault<Interface>(failing, operation) != Something<Result>());
      }
    } catch (const Error& error) {
      raised = error.number;
    }
    EXPECT_EQ(raised, ErrorOfFailing(name));
    EXPECT_EQ(fake.calls, Log()) << "not handed on";
    CallByDefault<Interface>(failing, operation);
    EXPECT_EQ(fake.calls, Log{name}) << "once only";
  }
};

#define WRAPPED(Interface) \
  Wrapped<Interface, Fake##Interface, Forwarding##Interface, Recording##Interface, Failing##Interface> wrapped
#define OPERATION(kind, Result, failure, Name, hint, parameters, arguments, noted) wrapped.Check(#Name, &Checked::Name);

TEST(Wrappers_EachOperation, OfWindowsIsHandedOnRecordedAndFails) {
  using Checked = Windows;
  WRAPPED(Windows);
#include "platform/wrappers/windows_operations.inc"
}

TEST(Wrappers_EachOperation, OfGraphicsIsHandedOnRecordedAndFails) {
  using Checked = Graphics;
  WRAPPED(Graphics);
#include "platform/wrappers/graphics_operations.inc"
}

TEST(Wrappers_EachOperation, OfPicturesIsHandedOnRecordedAndFails) {
  using Checked = Pictures;
  WRAPPED(Pictures);
#include "platform/wrappers/pictures_operations.inc"
}

TEST(Wrappers_EachOperation, OfModulesIsHandedOnRecordedAndFails) {
  using Checked = Modules;
  WRAPPED(Modules);
#include "platform/wrappers/modules_operations.inc"
}

TEST(Wrappers_EachOperation, OfComponentsIsHandedOnRecordedAndFails) {
  using Checked = Components;
  WRAPPED(Components);
#include "platform/wrappers/components_operations.inc"
}

TEST(Wrappers_EachOperation, OfTheRunTimeIsHandedOnRecordedAndFails) {
  using Checked = RunTime;
  WRAPPED(RunTime);
#include "platform/wrappers/runtime_operations.inc"
}

TEST(Wrappers_EachOperation, OfTheClipboardIsHandedOnRecordedAndFails) {
  using Checked = Clipboard;
  WRAPPED(Clipboard);
#include "platform/wrappers/clipboard_operations.inc"
}

#undef OPERATION

// Services of which the arguments come back changed.
class MovingWindows : public ForwardingWindows {
 public:
  using ForwardingWindows::ForwardingWindows;
  Long GetWindowRect(Long, Rect& rectangle) override {
    rectangle = {1, 2, 3, 4};
    return 1;
  }
};

TEST(Recording_Arguments, AreAsTheyAreAfterTheCall) {
  FakeWindows fake;
  MovingWindows windows(fake);
  Recorder recorder;
  RecordingWindows recording(windows, &recorder);
  Rect rectangle;
  recording.GetWindowRect(5, rectangle);
  ASSERT_EQ(recorder.lastArguments.size(), 2u);
  ASSERT_NE(recorder.lastArguments[1].If<Rect>(), nullptr);
  EXPECT_EQ(*recorder.lastArguments[1].If<Rect>(), (Rect{1, 2, 3, 4}));
}

TEST(Recording_Arguments, TellWhatANumberStandsFor) {
  FakeWindows fakeWindows;
  FakeGraphics fakeGraphics;
  Recorder recorder;
  RecordingWindows windows(fakeWindows, &recorder);
  RecordingGraphics graphics(fakeGraphics, &recorder);

  const String title = u"title";
  windows.FindWindowExA(11, 0, nullptr, &title);
  using Hint = CallArgument::Hint;
  using Kind = CallArgument::Kind;
  ASSERT_EQ(recorder.lastArguments.size(), 4u);
  EXPECT_EQ(recorder.lastArguments[0].hint, Hint::kWindow);
  EXPECT_EQ(*recorder.lastArguments[0].If<Long>(), 11);
  EXPECT_EQ(KindOf(recorder.lastArguments[2]), Kind::kNull);
  EXPECT_EQ(*recorder.lastArguments[3].If<String>(), u"title");
  EXPECT_EQ(recorder.lastResult.hint, Hint::kWindow);

  windows.SetTimer(11, 4096, 5000, nullptr);
  ASSERT_EQ(recorder.lastArguments.size(), 3u);
  EXPECT_EQ(recorder.lastArguments[2].hint, Hint::kPlain);
  EXPECT_EQ(*recorder.lastArguments[2].If<Long>(), 5000);

  windows.DoEvents();
  EXPECT_TRUE(recorder.lastArguments.empty());
  EXPECT_EQ(KindOf(recorder.lastResult), Kind::kNothing);

  graphics.CreateCompatibleBitmap(3, 10, 10);
  EXPECT_EQ(recorder.lastArguments[0].hint, Hint::kContext);
  EXPECT_EQ(recorder.lastResult.hint, Hint::kBitmap);
}

TEST(Recording_Arguments, HoldTheRestInShort) {
  FakePictures fakePictures;
  FakeModules fakeModules;
  Recorder recorder;
  RecordingPictures pictures(fakePictures, &recorder);
  RecordingModules modules(fakeModules, &recorder);
  Guid id{0x7BF80980, static_cast<Integer>(0xBF32), 0x101A, {0x8B, 0xBB, 0, 0xAA, 0, 0x30, 0x0C, 0xAB}};
  pictures.CLSIDFromString(u"text", id);
  EXPECT_EQ(*recorder.lastArguments[1].If<String>(), u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}");
  Array<Byte> bytes(1, 12);
  modules.LoadResData(3, u"CUSTOM", bytes);
  EXPECT_EQ(*recorder.lastArguments[2].If<Long>(), 12);
  modules.LockResource(3);
  EXPECT_EQ(*recorder.lastResult.If<Boolean>(), true);
}

TEST(Recording_Arguments, TellWhatKindOfDataTheClipboardGets) {
  FakeClipboard fake;
  Recorder recorder;
  RecordingClipboard clipboard(fake, &recorder);
  using Hint = CallArgument::Hint;
  clipboard.OpenClipboard(11);
  EXPECT_EQ(recorder.lastArguments[0].hint, Hint::kWindow);
  clipboard.SetClipboardData(clipboardformat::kBitmap, 12);
  EXPECT_EQ(recorder.lastArguments[1].hint, Hint::kBitmap);
  clipboard.SetClipboardData(clipboardformat::kText, 12);
  EXPECT_EQ(recorder.lastArguments[1].hint, Hint::kMemory);
  EXPECT_EQ(*recorder.lastArguments[1].If<Long>(), 12);
  clipboard.SetText(u"text", clipboardformat::kText);
  EXPECT_EQ(*recorder.lastArguments[0].If<String>(), u"text");
}

// Calls that come about inside a call.
class NestingWindows : public FakeWindows {
 public:
  Long SendMessageA(Long, Long, Long, Long) override { return outer->ReleaseCapture(); }
  Windows* outer = nullptr;
};

TEST(Recording_Order, PutsWhatArisesInsideBeforeTheCall) {
  NestingWindows fake;
  Recorder recorder;
  RecordingWindows recording(fake, &recorder);
  fake.outer = &recording;
  EXPECT_EQ(recording.SendMessageA(1, 2, 3, 4), 7);
  EXPECT_EQ(recorder.names, (Log{"ReleaseCapture", "SendMessageA"}));
}

TEST(Failing_Values, AreThoseOfEachService) {
  FakeWindows fakeWindows;
  FakeGraphics fakeGraphics;
  FakePictures fakePictures;
  FakeRunTime fakeRunTime;
  Faults faults;
  FailingWindows windows(fakeWindows, faults);
  FailingGraphics graphics(fakeGraphics, faults);
  FailingPictures pictures(fakePictures, faults);
  FailingRunTime runTime(fakeRunTime, faults);
  for (const Operation& operation : AllOperations()) faults.Arm(std::string(operation.name), 1);

  Rect rectangle{1, 2, 3, 4};
  Message message;
  Picture picture;
  EXPECT_EQ(windows.GetWindowRect(1, rectangle), 0);
  EXPECT_EQ(rectangle, (Rect{1, 2, 3, 4}));
  EXPECT_EQ(windows.GetMessageA(message), -1);
  EXPECT_EQ(windows.GetWindowTextA(1, 10), u"");
  EXPECT_EQ(graphics.GetPixel(1, 2, 3), -1);
  EXPECT_EQ(graphics.ColorKeyBlt(1, 2, 3, 4, 5, 6, 7, 8, 9), false);
  EXPECT_EQ(pictures.GlobalLock(1), nullptr);
  EXPECT_EQ(pictures.GlobalFree(31), 31);
  EXPECT_EQ(pictures.GlobalSize(31), 0);
  EXPECT_EQ(pictures.OleLoadPicture({}, 0, false, {}, picture), static_cast<Long>(0x80004005));
  EXPECT_EQ(runTime.GetSetting(u"Init", u"key", u"default"), u"default");
  EXPECT_EQ(fakeWindows.calls.size() + fakeGraphics.calls.size() + fakePictures.calls.size(), 0u);
}

TEST(Faults_Counts, AreUsedUpOneByOne) {
  Faults faults;
  EXPECT_FALSE(faults.Take("SetTimer"));
  faults.Arm("settimer", 2);
  faults.Arm("SetTimer", 1);
  faults.Arm("KillTimer", 0);
  faults.Arm("KillTimer", -3);
  EXPECT_FALSE(faults.Take("KillTimer"));
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(faults.Take("SetTimer")) << i;
  EXPECT_FALSE(faults.Take("SetTimer"));
  faults.Arm("SetTimer", 1);
  faults.Clear();
  EXPECT_FALSE(faults.Take("SetTimer"));
}

TEST(Operations_Names, AreFoundWithoutCaseAndUnique) {
  ASSERT_NE(FindOperation("getdc"), nullptr);
  EXPECT_EQ(FindOperation("getdc")->name, "GetDC");
  EXPECT_EQ(FindOperation("GetDC")->kind, CallKind::kContext);
  EXPECT_EQ(FindOperation("GetD"), nullptr);
  EXPECT_EQ(FindOperation(""), nullptr);
  for (const Operation& operation : AllOperations()) {
    EXPECT_EQ(FindOperation(operation.name), &operation) << operation.name;
  }
}

// A hook whose messages the test brings itself.
class FakeHook : public Subclasser {
 public:
  FakeHook(FakeHook** place, Log& calls) : mPlace(place), mCalls(calls) { *place = this; }
  ~FakeHook() override { *mPlace = nullptr; }
  void SetSink(MessageSink* newSink) override { sink = newSink; }
  void Subclass(Long) override { mCalls.push_back("Subclass"); }
  Long CallPreviousProc(Long, Long, Long) override {
    mCalls.push_back("CallPreviousProc");
    return 9;
  }
  void Unsubclass() override { mCalls.push_back("Unsubclass"); }
  MessageSink* sink = nullptr;

 private:
  FakeHook** mPlace;
  Log& mCalls;
};

class FakeHooks : public Subclassers {
 public:
  Ref<Subclasser> Create() override { return New<FakeHook>(&last, calls); }
  FakeHook* last = nullptr;
  Log calls;
};

struct Sink : MessageSink {
  void BeforeMessage(Long, Long, Long, Long& retValue, Boolean& Cancel) override {
    retValue = 77;
    Cancel = true;
    if (event) event();
  }
  std::function<void()> event;
};

class RecordingHook_Test : public testing::Test {
 protected:
  // A message as the window system brings it: the hook itself is held meanwhile.
  Long Bring() {
    const Ref<FakeHook> held(fakes.last);
    Long answer = 0;
    Boolean cancel = false;
    if (held->sink != nullptr) held->sink->BeforeMessage(1, 2, 3, answer, cancel);
    return cancel ? answer : -1;
  }
  FakeHooks fakes;
  Recorder recorder;
  Sink sink;
};

using RecordingHook = RecordingHook_Test;

TEST_F(RecordingHook, TellsOfStepsAndMessages) {
  RecordingSubclassers recording(fakes, &recorder);
  const Ref<Subclasser> hook = recording.Create();
  hook->SetSink(&sink);
  hook->Subclass(5);
  EXPECT_EQ(*recorder.lastArguments[0].If<Long>(), 5);
  EXPECT_EQ(recorder.lastArguments[0].hint, CallArgument::Hint::kWindow);
  EXPECT_EQ(hook->CallPreviousProc(1, 2, 3), 9);
  EXPECT_EQ(Bring(), 77);
  ASSERT_EQ(recorder.lastArguments.size(), 5u);
  EXPECT_EQ(*recorder.lastArguments[0].If<Long>(), 5);
  EXPECT_EQ(*recorder.lastArguments[4].If<Boolean>(), true);
  EXPECT_EQ(*recorder.lastResult.If<Long>(), 77);
  hook->Unsubclass();
  EXPECT_EQ(recorder.names, (Log{"subclass", "previous", "message", "unsubclass"}));
  EXPECT_EQ(fakes.calls, (Log{"Subclass", "CallPreviousProc", "Unsubclass"}));
}

TEST_F(RecordingHook, WithoutASinkHasNoMessages) {
  RecordingSubclassers recording(fakes, &recorder);
  const Ref<Subclasser> hook = recording.Create();
  hook->SetSink(&sink);
  hook->SetSink(nullptr);
  EXPECT_EQ(Bring(), -1);
  EXPECT_EQ(recorder.names, Log());
}

TEST_F(RecordingHook, MayBeDroppedInItsOwnEvent) {
  RecordingSubclassers recording(fakes, &recorder);
  Ref<Subclasser> hook = recording.Create();
  hook->SetSink(&sink);
  hook->Subclass(5);
  sink.event = [&] { hook = nullptr; };
  EXPECT_EQ(Bring(), 77);
  EXPECT_EQ(recorder.names, (Log{"subclass", "message"}));
  EXPECT_EQ(fakes.last, nullptr) << "the wrapped hook went with it";
}

TEST_F(RecordingHook, MayOutliveItsMaker) {
  Ref<Subclasser> hook;
  {
    RecordingSubclassers recording(fakes, &recorder);
    hook = recording.Create();
    hook->SetSink(&sink);
  }
  EXPECT_EQ(Bring(), 77);
  hook->Unsubclass();
  EXPECT_EQ(recorder.names, Log());
}

TEST(FailingHook_Steps, FailWhenArmed) {
  FakeHooks fakes;
  Faults faults;
  FailingSubclassers failing(fakes, faults);
  const Ref<Subclasser> hook = failing.Create();
  for (const char* step : {"subclass", "previous", "unsubclass", "createsubclasser"}) faults.Arm(step, 1);
  hook->Subclass(5);
  EXPECT_EQ(hook->CallPreviousProc(1, 2, 3), 0);
  hook->Unsubclass();
  EXPECT_EQ(fakes.calls, Log());
  EXPECT_THROW(failing.Create(), Error);
  hook->Subclass(5);
  EXPECT_EQ(hook->CallPreviousProc(1, 2, 3), 9);
  hook->Unsubclass();
  EXPECT_EQ(fakes.calls, (Log{"Subclass", "CallPreviousProc", "Unsubclass"}));
}

}  // namespace
}  // namespace strandline
