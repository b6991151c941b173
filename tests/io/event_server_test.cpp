#include <QTimer>
#include <gmock/gmock.h>

#include "tests/floors.h"
#include "tests/io/io_bench.h"

namespace tarvok::test {
namespace {

TEST(QtEventServer, ServesUntilFlagOrTimeout) {
  QtEventServer events;
  bool flag = false;
  events.CallLater(5, [&] { flag = true; });
  EXPECT_TRUE(events.ServeUntil([&] { return flag; }, EventServer::kForever));
  EXPECT_FALSE(events.ServeUntil([] { return false; }, 20));
  EXPECT_TRUE(events.ServeUntil([] { return true; }, 0));

  bool served = false;
  events.CallLater(0, [&] { served = true; });
  EXPECT_TRUE(events.ServeUntil([&] { return served; }, 0)) << "a wait of zero length serves due events";
}

TEST(QtEventServer, SleepsUntilAnEvent) {
  QtEventServer events;
  int looks = 0;
  events.ServeUntil([&] { return ++looks < 0; }, 100);
  EXPECT_LT(looks, 20);
}

TEST(QtEventServer, NestsWithoutReenteringATimer) {
  QtEventServer events;
  int depth = 0, deepest = 0, ticks = 0;
  bool inner_saw_later = false;
  const auto timer = events.StartTimer(1, [&] {
    deepest = std::max(deepest, ++depth);
    if (++ticks == 1) {
      bool later = false;
      events.CallLater(20, [&] { later = true; });
      inner_saw_later = events.ServeUntil([&] { return later; }, kPatience_ms);
    }
    --depth;
  });
  EXPECT_TRUE(events.ServeUntil([&] { return ticks >= 5; }, kPatience_ms));
  EXPECT_TRUE(inner_saw_later);
  EXPECT_EQ(deepest, 1);
  events.StopTimer(timer);
  const int stopped_at = ticks;
  events.ServeUntil([] { return false; }, 20);
  EXPECT_EQ(ticks, stopped_at);
}

TEST(QtEventServer, StopsOnlyTheGivenTimer) {
  QtEventServer events;
  std::vector<EventServer::TimerId> old;
  // Starting many timers would reuse any id that can be reused.
  for (int i = 0; i < 300; ++i) {
    bool done = false;
    old.push_back(events.CallLater(0, [&] { done = true; }));
    events.ServeUntil([&] { return done; }, kPatience_ms);
  }
  bool alive = false;
  events.CallLater(5, [&] { alive = true; });
  for (const auto id : old) events.StopTimer(id);
  EXPECT_TRUE(events.ServeUntil([&] { return alive; }, kPatience_ms));
}

}  // namespace
}  // namespace tarvok::test
