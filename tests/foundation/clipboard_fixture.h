#pragma once

// The clipboard class on a desk whose services can fail and tell of their calls.

#include "foundation/cCustomClipboard.h"
#include "platform/wrappers/failing.h"
#include "platform/wrappers/recording.h"
#include "tests/foundation/foundation_fixture.h"

namespace strandline {

class ClipboardClassTest : public FoundationTest, private WindowProcedure, private CallRecorder {
 protected:
  ClipboardClassTest() {
    Platform services = desk.Services();
    services.clipboard = &mRecordingClipboard;
    services.pictures = &mRecordingPictures;
    services.runTime = &mFailingRunTime;
    Load(services);
    hwnd = desk.Host().CreateWindowOf(u"Test", u"Test", 0, {0, 0, 10, 10}, this);
    clipboard = New<cCustomClipboard>();
    calls.clear();
  }
  ~ClipboardClassTest() override {
    clipboard = nullptr;
    EXPECT_EQ(variables.mStackCalls, 0);
    EXPECT_EQ(desk.Pictures().Memory().LiveBlocks(), 0) << "memory is lost";
  }

  void Open() { ASSERT_TRUE(clipboard->ClipboardOpen(hwnd, false).ToBoolean()); }
  void Put(Long format, const std::string& bytes) {
    const std::vector<Byte> content(bytes.begin(), bytes.end());
    ASSERT_TRUE(desk.Clipboard().SetFromOutside(format, content));
  }
  // What another program finds in that format; "absent" when there is nothing.
  std::string Found(Long format) {
    for (const auto& item : desk.Clipboard().Content()) {
      if (item.format == format) return {item.bytes.begin(), item.bytes.end()};
    }
    return "absent";
  }
  static Array<Byte> BytesOf(const std::string& text) {
    Array<Byte> bytes(0, static_cast<Long>(text.size()) - 1);
    std::copy(text.begin(), text.end(), bytes.Data());
    return bytes;
  }
  // The object's variables, as a dump has them.
  std::string Report() const;

  // The first formats that the desk gives numbers to.
  static constexpr Long kRichTextId = 49153;
  static constexpr Long kHtmlId = 49154;
  static constexpr Long kNotOpen = cCustomClipboard::kNotOpen;
  static constexpr const char* kNotOpenText = "Attempt to access the clipboard when clipboard not Open.";

  Faults faults;
  LogLines calls;  // of the clipboard's and of memory's services, with the numbers and texts that they were given
  Long hwnd = 0;
  Ref<cCustomClipboard> clipboard;

 private:
  Long OnMessage(Long, Long, Long, Long) override { return 0; }
  void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument&) override {
    std::string line(call);
    for (const CallArgument& argument : arguments) {
      if (argument.hint == CallArgument::Hint::kMemory) {
        line += " memory";
      } else if (const Long* number = argument.If<Long>()) {
        line += *number == hwnd ? " window" : " " + std::to_string(*number);
      } else if (const String* text = argument.If<String>()) {
        line += " '" + ToUtf8(*text) + "'";
      }
    }
    calls.push_back(line);
  }

  FailingClipboard mFailingClipboard{desk.Clipboard(), faults};
  FailingPictures mFailingPictures{desk.Pictures(), faults};
  FailingRunTime mFailingRunTime{desk.RunTime(), faults};
  RecordingClipboard mRecordingClipboard{mFailingClipboard, this};
  RecordingPictures mRecordingPictures{mFailingPictures, this};
};

}  // namespace strandline
