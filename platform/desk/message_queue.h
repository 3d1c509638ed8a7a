#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <utility>

#include "platform/windows.h"

namespace strandline::desk {

// Input as it waits. What the hand does gets its place in the window, and where it isn't aimed the window too (0 until
// then), when its turn comes.
struct Input {
  Message message;
  bool isOfHand = false;
};

// What waits for the thread, in two lines: messages that were posted, and input; and the wish to quit. Paints and ticks
// don't stand here, they arise when their turn comes.
class MessageQueue {
 public:
  // Windows' own limit; a message too many is lost.
  static constexpr std::size_t kLongest = 10'000;

  void Post(const Message& message) { Push(mPosted, message); }
  void PostInput(const Input& input) { Push(mInput, input); }
  void PostQuit() { mQuit = true; }

  std::optional<Message> TakePosted() { return Take(mPosted); }
  std::optional<Input> TakeInput() { return Take(mInput); }
  bool HasPosted() const { return !mPosted.empty(); }
  bool TakeQuit() { return std::exchange(mQuit, false); }

  // A move of the hand that waits as the last input becomes this one, as the mouse has one place.
  void PostMove(const Message& move) {
    const bool waits = !mInput.empty() && mInput.back().isOfHand && mInput.back().message.message == wm::kMouseMove &&
                       mInput.back().message.hwnd == move.hwnd;
    if (waits) {
      mInput.back().message = move;
    } else {
      PostInput({move, true});
    }
  }

 private:
  template <class Entry>
  static void Push(std::deque<Entry>& line, const Entry& entry) {
    if (line.size() < kLongest) line.push_back(entry);
  }
  template <class Entry>
  static std::optional<Entry> Take(std::deque<Entry>& line) {
    if (line.empty()) return std::nullopt;
    const Entry first = line.front();
    line.pop_front();
    return first;
  }

  std::deque<Message> mPosted;
  std::deque<Input> mInput;
  bool mQuit = false;
};

}  // namespace strandline::desk
