#include "sessions/pace.h"

#include <gtest/gtest.h>

namespace tarvok {
namespace {

TEST(Pace, TellsWhatCameAndWhatIsLeft) {
  const Pace pace(82'000, 9600, 5'000);
  const std::tuple<int, int, const char*> cases[] = {
      {0, 0, "0 of 82,000 bytes"},
      {0, 60'000, "0 of 82,000 bytes"},
      {640, 999, "640 of 82,000 bytes"},
      {650, 1'000, "650 of 82,000 bytes, 650 bytes/s, about 2:06 left"},
      {41'000, 63'000, "41,000 of 82,000 bytes, 650 bytes/s, about 1:03 left"},
      {81'999, 126'000, "81,999 of 82,000 bytes, 650 bytes/s, about 0:01 left"},
      {82'100, 126'000, "82,000 of 82,000 bytes, 650 bytes/s, about 0:00 left"}};
  for (const auto& [done, ms, now] : cases) EXPECT_EQ(pace.Now(done, 5'000 + ms), now);
}

TEST(Pace, EndsWithTheShareOfTheLine) {
  EXPECT_EQ(Pace(82'000, 9600, 0).End(82'000, 126'100),
            "82,000 bytes in 2:06: 650 bytes/s, 67.7 % of the line");
  EXPECT_EQ(Pace(1'234'567, 0, 0).End(1'234'567, 0), "1,234,567 bytes in 0:00: 1,234,567,000 bytes/s");
  // An adapter that keeps each byte for 16 ms leaves about a quarter of a fast line.
  const std::string slow = Pace(82'000, 115'200, 0).End(82'000, 27'000);
  EXPECT_TRUE(slow.starts_with("82,000 bytes in 0:27: 3,037 bytes/s, 26.3 % of the line. Up to two thirds"))
      << slow;
}

}  // namespace
}  // namespace tarvok
