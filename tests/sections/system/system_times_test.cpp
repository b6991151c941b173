#include "sections/system/system_times.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

TEST(SystemTimes, ImageOfWeekdays) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"", "00*16", "00*16"},
      {"Mon=0800|1730", "00*4 08 00 00*10", "00*4 17 30 00*10"},
      {"Sun=2359|0001\nSat=1200|1234", "00 00 23 59 00*10 12 00", "00 00 00 01 00*10 12 34"},
      // Short times are taken as they come; one that is not there is 0, "F" is unset.
      {"Sun=800|2\nMon=0800\nTue=F|F", "00 00 80 00 08 00 FF FF 00*8", "00 00 02 02 00 00 FF FF 00*8"},
      {"Sun=zz9a|12:30", "00 00 00 9A 00*12", "00 00 12 30 00*12"},
  };
  for (const auto& [keys, day, night] : cases) {
    const std::string project = "[systemconfig]\n" + keys + "\n";
    EXPECT_EQ(Encoded(EncodeDayTime, 16, project).bytes(), Hex(day)) << keys;
    EXPECT_EQ(Encoded(EncodeNightTime, 16, project).bytes(), Hex(night)) << keys;
  }
}

TEST(SystemTimes, DayThenNightMerge) {
  const IniText day =
      Decoded(DecodeDayTime, Hex("11 22 23 59 08 05 FF 0A 00*8"), "[SystemConfig]\nMon=0700|2200\nPbx=1\n");
  ExpectKeys(day, "[SystemConfig]\nSun=2359\nMon=0805\nTue=FF0A\nSat=0000\n");
  EXPECT_EQ(day.Keys("SystemConfig").size(), 8U);

  const IniText both = Decoded(DecodeNightTime, Hex("00 00 17 30 18"), day.bytes());
  ExpectKeys(both, "[SystemConfig]\nSun=2359|1730\nMon=0805|1800\nSat=0000|0000\n");
  EXPECT_EQ(both.Keys("SystemConfig").size(), 8U);
  EXPECT_EQ(Decoded(DecodeNightTime, Hex("00 00 17 30")).Get("SystemConfig", "Sun"), "0000|1730");
  EXPECT_EQ(Decoded(DecodeNightTime, Hex("00 00 19"), both.bytes()).Get("SystemConfig", "Sun"), "2359|1900");
}

TEST(SystemTimes, ImageOfHolidays) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "00 00"},     {"12|25", "25 12"},
      {"F|05", "05 FF"}, {"11", "FF 11"},
      {"x|1F", "1F 00"}, {"12|123", "section SystemConfig, row W50, field Day: value 123" + kTooLarge},
  };
  for (const auto& [row, image] : cases)
    ExpectImage(EncodeWeekend, 100, "[SystemConfig]\nW51=1|1\nW50=" + row, 98, image);
}

TEST(SystemTimes, HolidaysComeBackDecimal) {
  const IniText project =
      Decoded(DecodeWeekend, Hex("25 12 01 01 00 00 FF FF 05 FF 00 09"), "[SystemConfig]\nW04=12|25\n");
  ExpectKeys(project, "[SystemConfig]\nW01=18|37\nW02=01|01\nW03=\nW04=\nW05=F|05\nW06=09|00\nW50=\n");
  EXPECT_EQ(project.Keys("SystemConfig").size(), 50U);
}

}  // namespace
}  // namespace tarvok::test
