// Several sinks at one source, and what may happen while an event is on its way.

#include "foundation/event_source.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "tests/support/raised.h"

namespace strandline {
namespace {

class Events : public testing::Test {
 protected:
  class Sink {
   public:
    Sink(Events& events, std::string name) : mEvents(events), mName(std::move(name)) {}
    void Hear() {
      mEvents.heard += mName;
      if (during) during();
    }
    std::function<void()> during;

   private:
    Events& mEvents;
    std::string mName;
  };

  void AdviseAll() {
    for (Sink* sink : {&a, &b, &c}) source->Advise(sink);
  }
  void Raise() {
    source->Raise([](Sink& sink) { sink.Hear(); });
  }
  std::string HeardAgain() {
    heard.clear();
    Raise();
    return heard;
  }

  std::unique_ptr<EventSource<Sink>> source = std::make_unique<EventSource<Sink>>();
  std::string heard;
  Sink a{*this, "a"};
  Sink b{*this, "b"};
  Sink c{*this, "c"};
};

TEST_F(Events, WithoutASink_AreHeardByNobody) {
  Raise();
  EXPECT_EQ(heard, "");
  source->Advise(nullptr);
  Raise();
  EXPECT_EQ(heard, "");
}

TEST_F(Events, ReachEverySink_InTheOrderOfAdvising) {
  for (Sink* sink : {&c, &a, &b}) source->Advise(sink);
  Raise();
  EXPECT_EQ(heard, "cab");
}

TEST_F(Events, SinkThatIsAdvisedAgain_KeepsItsPlaceAndHearsOnce) {
  AdviseAll();
  source->Advise(&a);
  Raise();
  EXPECT_EQ(heard, "abc");
  source->Unadvise(&a);
  EXPECT_EQ(HeardAgain(), "bc");
}

TEST_F(Events, SinkThatLeftAndCameBack_IsTheLast) {
  AdviseAll();
  source->Unadvise(&a);
  source->Advise(&a);
  Raise();
  EXPECT_EQ(heard, "bca");
}

TEST_F(Events, SinkThatWasNeverAdvised_MayLeave) {
  source->Advise(&a);
  source->Unadvise(&b);
  Raise();
  EXPECT_EQ(heard, "a");
}

// Who leaves, at whose turn, and who hears.
TEST_F(Events, SinkThatLeavesDuringAnEvent_IsNotCalledAnyMore) {
  struct Case {
    Sink* at;
    Sink* leaves;
    const char* heard;
    const char* next;
  };
  const Case cases[] = {
      {&a, &a, "abc", "bc"}, {&a, &b, "ac", "ac"},  {&a, &c, "ab", "ab"},  {&b, &a, "abc", "bc"}, {&b, &b, "abc", "ac"},
      {&b, &c, "ab", "ab"},  {&c, &a, "abc", "bc"}, {&c, &b, "abc", "ac"}, {&c, &c, "abc", "ab"},
  };
  for (const Case& row : cases) {
    source = std::make_unique<EventSource<Sink>>();
    AdviseAll();
    heard.clear();
    row.at->during = [&] { source->Unadvise(row.leaves); };
    Raise();
    row.at->during = nullptr;
    EXPECT_EQ(heard, row.heard);
    EXPECT_EQ(HeardAgain(), row.next);
  }
}

TEST_F(Events, SinkThatComesDuringAnEvent_WaitsForTheNext) {
  source->Advise(&a);
  a.during = [&] { source->Advise(&b); };
  Raise();
  EXPECT_EQ(heard, "a");
  EXPECT_EQ(HeardAgain(), "ab");
}

TEST_F(Events, SinkThatLeavesAndComesBackDuringAnEvent_WaitsForTheNext) {
  AdviseAll();
  b.during = [&] {
    source->Unadvise(&b);
    source->Advise(&b);
    source->Unadvise(&c);
    source->Advise(&c);
  };
  Raise();
  EXPECT_EQ(heard, "ab");
  b.during = nullptr;
  EXPECT_EQ(HeardAgain(), "abc");
}

TEST_F(Events, AllLeaveDuringAnEvent_AndItIsOver) {
  AdviseAll();
  a.during = [&] {
    for (Sink* sink : {&a, &b, &c}) source->Unadvise(sink);
  };
  Raise();
  EXPECT_EQ(heard, "a");
}

TEST_F(Events, SourceThatGoesDuringAnEvent_EndsIt) {
  AdviseAll();
  b.during = [&] { source.reset(); };
  Raise();
  EXPECT_EQ(heard, "ab");
}

TEST_F(Events, EventWithinAnEvent_IsComplete) {
  AdviseAll();
  int depth = 0;
  b.during = [&] {
    if (++depth == 1) Raise();
  };
  Raise();
  EXPECT_EQ(heard, "ababcc");
}

TEST_F(Events, SinkThatLeavesInAnInnerEvent_IsGoneForTheOuterOneToo) {
  AdviseAll();
  int depth = 0;
  b.during = [&] {
    if (++depth == 1) Raise();
  };
  c.during = [&] {
    source->Unadvise(&a);
    source->Unadvise(&c);
  };
  Raise();
  EXPECT_EQ(heard, "ababc");
  EXPECT_EQ(HeardAgain(), "b");
}

TEST_F(Events, SourceThatGoesInAnInnerEvent_EndsBoth) {
  AdviseAll();
  int depth = 0;
  a.during = [&] {
    if (++depth == 1) Raise();
  };
  b.during = [&] { source.reset(); };
  Raise();
  EXPECT_EQ(heard, "aab");
}

TEST_F(Events, ErrorOfASink_EndsTheRoundAndLeavesTheSource) {
  AdviseAll();
  b.during = [] { strandline::Raise(errors::kOverflow); };
  EXPECT_EQ(Raised([&] { Raise(); }), errors::kOverflow);
  EXPECT_EQ(heard, "ab");
  b.during = nullptr;
  source->Unadvise(&a);
  EXPECT_EQ(HeardAgain(), "bc");
}

}  // namespace
}  // namespace strandline
