// A rotation of three ads over ten simulated minutes in two documents, line by line.

#include <algorithm>
#include <array>

#include "tests/ads/ads_fixture.h"

namespace strandline {
namespace {

// Two documents for ten minutes: every timer that is set or killed, and everything that is put on a panel, at its time.
class TenMinutes : public AdsTest {
 protected:
  static constexpr Long kMinutes = 10 * 60'000;  // milliseconds
  static constexpr Long kStarts[] = {0, 1237};   // of the rotation in each document

  struct Event {
    std::int64_t at;
    int window;
    std::string what;
  };

  // What a rotation of three ads is: at rest the time of the ad, then nine steps of 100 ms behind the first.
  static std::vector<Event> Expected(const std::array<Long, 3>& durations, std::int64_t end) {
    std::vector<Event> events;
    for (const int window : {1, 2}) {
      const std::string bar = "bar " + std::to_string(window);
      std::int64_t at = kStarts[window - 1];
      for (int ad = 0;; ad = (ad + 1) % 3) {
        at += durations[static_cast<std::size_t>(ad)];
        const int next = (ad + 1) % 3;
        events.push_back({at, window, "KillTimer(" + bar + ", 4096)"});
        events.push_back({at, window, "SetTimer(" + bar + ", 4096, 100)"});
        for (int step = 1; step <= 10; ++step) {
          events.push_back({at + 100 * (step - 1), window,
                            "BitBlt(panel " + std::to_string(window) + ", 0, 0, 223, 32, blend " + std::to_string(ad) +
                                std::to_string(next) + " " + std::to_string(step) + "0, 0, 0, SRCCOPY)"});
        }
        at += 900;
        events.push_back({at, window, "KillTimer(" + bar + ", 4096)"});
        events.push_back(
            {at, window,
             "SetTimer(" + bar + ", 4096, " + std::to_string(durations[static_cast<std::size_t>(next)]) + ")"});
        if (at > end) break;
      }
    }
    std::erase_if(events, [&](const Event& event) { return event.at > end; });
    std::stable_sort(events.begin(), events.end(), [](const Event& a, const Event& b) { return a.at < b.at; });
    return events;
  }
  static Trace::Lines Lines(const std::vector<Event>& events) {
    Trace::Lines lines;
    for (const Event& event : events) lines.push_back(std::to_string(event.at) + " " + event.what);
    return lines;
  }
  // Gives the blends their names, as they come into being.
  void NameBlends() {
    const Ref<Dictionary> cache = Cache();
    for (Long i = 0; cache && i < cache->Count(); ++i) {
      const std::string key = ToUtf8(cache->KeyAt(i).ToText());
      const std::string pair{key[0], key[2]};
      const std::string share = key.substr(4);
      trace().Name(cache->ItemAt(i).ToLong(), "blend " + pair + " " + (share == "1" ? "100" : share.substr(2) + "0"));
    }
  }
  Ref<Dictionary> Cache() {
    return Ref<Dictionary>(
        dynamic_cast<Dictionary*>(VariableSnapshot::Of(*Inside::Blender(Factory()))[u"mCache"].ToObject().Target()));
  }
};

TEST_F(TenMinutes, OfThreeAdsInTwoDocuments_GoExactlySo) {
  const std::array<Long, 3> durations = {5000, 3000, 4130};
  BeginWithStrip({{AdSettings({}, durations[1])}, {AdSettings({}, durations[2])}});
  HostClock& clock = world->desk.Clock();
  const std::int64_t start = clock.Milliseconds();
  world->Wait(kStarts[1]);
  world->Open(u"Two.doc");
  for (const Long n : {0, 1}) trace().Name(PanelVariables(n).Number(u"mTargetHdc"), "panel " + std::to_string(n + 1));

  trace().Listen(Trace::kTimers | Trace::kDrawing);
  trace().Only({"none of it is kept"});
  Trace::Lines lines;
  trace().during = [&](const std::string& line) {
    if (line.starts_with("BitBlt(panel ") || line.find(", 4096") != std::string::npos) {
      lines.push_back(std::to_string(clock.Milliseconds() - start) + " " + line);
    }
  };
  // The first round makes the blends, and gives no names to what it draws.
  world->Wait(60'000);
  NameBlends();
  EXPECT_EQ(blends.size(), 30u);
  lines.clear();
  const std::int64_t from = clock.Milliseconds() - start;
  world->Wait(kMinutes);
  trace().during = nullptr;
  trace().Listen(0);

  std::vector<Event> expected = Expected(durations, from + kMinutes);
  std::erase_if(expected, [&](const Event& event) { return event.at <= from; });
  const Trace::Lines expectedLines = Lines(expected);
  ASSERT_GT(expectedLines.size(), 3000u);
  ASSERT_EQ(lines.size(), expectedLines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) ASSERT_EQ(lines[i], expectedLines[i]) << "line " << i;
  EXPECT_EQ(blends.size(), 30u) << "no further blend in ten minutes";
}

}  // namespace
}  // namespace strandline
