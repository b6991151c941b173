#include "sections/ports/port_config.h"

#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

constexpr int kSize = 400;
constexpr int kRecord = 20;
constexpr int kLast = 19 * kRecord;

TEST(PortConfig, ImagesOfAProfile) {
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"", "00 FF FF 00*17", "00 FF FF 00*17", "00*6 FF 00*13"},
      {"F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F", "00 FF FF 00*17", "00 FF FF 00*6 FF FF FF 00*8",
       "00*6 FF 08 00*12"},
      // Each field with a value of its own shows where it goes.
      {"01|15|1|2|3|4|255|7|9|10203040506070|1|2|1|0|30|1|90|03|255",
       "03 00 0E 01 02 04 FF 07 09 1A 2A 3A 01 02 01 00 1E 01 00 00",
       "03 00 0E 01 02 04 FF 07 09 FF FF FF 01 02 01 00 1E 01 5A 00", "1A 2A 3A 4A 5A 6A 02 FF 00*12"},
      {"0|00|0|0|0|0|0|0|0|1234567|0|0|0|0|0|0|0|0|256", "00 FF FF 00*6 12 34 56 00*8",
       "00 FF FF 00*6 FF FF FF 00*8", "12 34 56 70 00 00 FF FF 00*12"},
      {"02|F|1", "00 01 FF 01 00*16", "00 01 FF 01 00*5 FF FF FF 00*8", "00*6 FF 08 00*12"},
  };
  for (const auto& [profile, a, b, second] : cases) {
    const std::string project = "[PortConfig]\n20=" + profile;
    ExpectImage(EncodePortConfigA, kSize, project, kLast, a);
    ExpectImage(EncodePortConfigB, kSize, project, kLast, b);
    ExpectImage(EncodePortConfig2, kSize, project, kLast, second);
  }
  const std::string error = "section PortConfig, row 07, field ";
  const std::pair<std::string, std::string> errors[] = {
      {"256", error + "Class of Servrice Day: value 256" + kTooLarge},
      {"1|1|1|1|1|1|256", error + "CO Timeout: value 256" + kTooLarge},
      {"1|1|1|1|1|1|1|1|1|12*", error + "Hotline Oper: value 12*" + kNotDialled}};
  for (const auto& [profile, text] : errors)
    ExpectImage(EncodePortConfigA, kSize, "[PortConfig]\n07=" + profile, 0, text);
}

TEST(PortConfig, ProfileOfAnImage) {
  const std::tuple<Decoder, std::string, std::string> cases[] = {
      {DecodePortConfigA, "00 FF FF 00*17", ""},
      {DecodePortConfigB, "00 FF FF 00*17", ""},
      {DecodePortConfigB, "00 FF FF 00*6 12 34 56 00*8", ""},
      {DecodePortConfigA, "03 00 0E 01 02 04 FF 07 09 1A 2A 3A 01 02 01 00 1E 01 5A 00",
       "01|15|1|2|3|4|255|7|9|102030|1|2|1|0|30|1"},
      {DecodePortConfigB, "03 00 0E 01 02 04 FF 07 09 1A 2A 3A 01 02 01 00 1E 01 5A 00",
       "01|15|1|2|3|4|255|7|9|F|1|2|1|0|30|1|90"},
      {DecodePortConfigA, "FF*20", "F|F|0|0|0|0|255|255|255|F|0|0|0|0|0|0"},
      {DecodePortConfigB, "FF*20", "F|F|0|0|0|0|255|255|255|F|0|0|0|0|0|0|255"},
      {DecodePortConfigA, "00*20", "01|01|0|0|0|0|0|0|0|F|0|0|0|0|0|0"},
  };
  for (const auto& [decode, image, profile] : cases) {
    const IniText project = Decoded(decode, ImageWith(kSize, 0, kLast, Hex(image)), "[PortConfig]\n20=old\n");
    EXPECT_EQ(project.Get("PortConfig", "20"), profile) << image;
    EXPECT_EQ(project.HasKey("PortConfig", "20"), !profile.empty());
    EXPECT_EQ(project.Get("PortConfig", "Now"), "20");
  }
}

TEST(PortConfig, SecondSectionMergesIntoWhatTheFirstLeft) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"01|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0", "1A 2A 3A 4A 5A 6A 02 FF 00*12",
       "01|F|0|0|0|0|0|0|0|102030405060|0|0|0|0|0|0|0|3|255"},
      {"01|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0", "FF*20", "01|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|255"},
      {"", "12 00*5 02 FF 00*12", ""},
  };
  for (const auto& [held, image, merged] : cases) {
    const std::string row = held.empty() ? "" : "20=" + held + "\n";
    const IniText project =
        Decoded(DecodePortConfig2, ImageWith(kSize, 0, kLast, Hex(image)), "[PortConfig]\n" + row);
    EXPECT_EQ(project.Get("PortConfig", "20"), merged) << image;
    EXPECT_EQ(project.Keys("PortConfig").size(), held.empty() ? 0U : 1U);
  }
}

}  // namespace
}  // namespace tarvok::test
