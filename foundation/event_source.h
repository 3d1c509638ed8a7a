#pragma once

// Who hears an object's events. A sink belongs to somebody else, who unadvises it before it goes. An event calls each
// sink in the order of advising, and while it does, everything may happen: a sink that leaves isn't called any more,
// one that comes waits for the next event, and the source itself may go, which ends the round.

#include <algorithm>
#include <cstddef>
#include <vector>

namespace strandline {

template <class Sink>
class EventSource {
 public:
  EventSource() = default;
  EventSource(const EventSource&) = delete;
  EventSource& operator=(const EventSource&) = delete;
  ~EventSource() {
    for (Round* round : mRounds) round->source = nullptr;
  }

  // One that is advised already keeps its place.
  void Advise(Sink* sink) {
    if (sink && Find(sink) == mSinks.end()) mSinks.push_back(sink);
  }
  // One that isn't advised is no error.
  void Unadvise(Sink* sink) {
    const auto at = Find(sink);
    if (at == mSinks.end()) return;
    const auto place = static_cast<std::size_t>(at - mSinks.begin());
    mSinks.erase(at);
    for (Round* round : mRounds) {
      if (place < round->next) --round->next;
      if (place < round->end) --round->end;
    }
  }

  // event(sink) for each; what it raises ends the round and goes to the caller.
  template <class Event>
  void Raise(const Event& event) {
    Round round(*this);
    while (round.source && round.next < round.end) event(*mSinks[round.next++]);
  }

 private:
  // An event on its way; events can be nested.
  struct Round {
    explicit Round(EventSource& raising) : source(&raising), end(raising.mSinks.size()) {
      raising.mRounds.push_back(this);
    }
    ~Round() {
      if (source) source->mRounds.pop_back();
    }
    Round(const Round&) = delete;
    Round& operator=(const Round&) = delete;

    EventSource* source;  // null when it has gone
    std::size_t next = 0;
    std::size_t end;
  };

  auto Find(Sink* sink) { return std::find(mSinks.begin(), mSinks.end(), sink); }

  std::vector<Sink*> mSinks;
  std::vector<Round*> mRounds;  // the innermost last
};

}  // namespace strandline
