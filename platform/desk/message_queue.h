#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <utility>

#include "platform/windows.h"

namespace strandline::desk {

// What waits for the thread, in two lines: messages that were posted, and input; and the wish to quit. Paints and ticks
// don't stand here, they arise when their turn comes.
class MessageQueue {
 public:
  // Windows' own limit; a message too many is lost.
  static constexpr std::size_t kLongest = 10'000;

  void Post(const Message& message) { Push(mPosted, message); }
  void PostInput(const Message& message) { Push(mInput, message); }
  void PostQuit() { mQuit = true; }

  std::optional<Message> TakePosted() { return Take(mPosted); }
  std::optional<Message> TakeInput() { return Take(mInput); }
  bool HasPosted() const { return !mPosted.empty(); }
  bool TakeQuit() { return std::exchange(mQuit, false); }

  // A move of the mouse over the same window that waits as the last input becomes this one, as the mouse has one place.
  void PostMouseMove(const Message& message) {
    if (!mInput.empty() && mInput.back().message == wm::kMouseMove && mInput.back().hwnd == message.hwnd) {
      mInput.back() = message;
    } else {
      PostInput(message);
    }
  }

 private:
  static void Push(std::deque<Message>& line, const Message& message) {
    if (line.size() < kLongest) line.push_back(message);
  }
  static std::optional<Message> Take(std::deque<Message>& line) {
    if (line.empty()) return std::nullopt;
    const Message first = line.front();
    line.pop_front();
    return first;
  }

  std::deque<Message> mPosted;
  std::deque<Message> mInput;
  bool mQuit = false;
};

}  // namespace strandline::desk
