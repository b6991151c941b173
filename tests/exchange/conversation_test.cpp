#include <gmock/gmock.h>

#include "exchange/blank_images.h"
#include "tests/exchange/practice_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(Conversation, RepliesByteForByte) {
  PracticeBench bench(Wire::kLan, 106);
  const std::pair<const char*, const char*> kDialogue[] = {
      {"12120000", "21000080"},                  // idle, through a link
      {"12FF0000", "21000080"},                  // idle, direct
      {"12FF000D", "2100008900"},                // enquiry with nothing under way
      {"12FF000A01", "21000080"},                // configuration mode
      {"12FF000CAAAAAA", "21000080"},            // any password, since none is set
      {"12FF000B", "2100008B6A00"},              // version
      {"12FF0009123400221126", "21000080"},      // time
      {"12FF0001001500030012A300", "21000080"},  // section 21, one pack
      {"12FF00021500", "21000082001500030012A300"},
      {"12FFFF80", ""},                // OK, nothing follows
      {"12FF000A04", "21000080"},      // mini bar mode
      {"12FF000C1234FF", "21000080"},  //
      {"12FF001100FF01200041420000000000000000000000000000000000000F2700000000000000000000",
       "21000080"},  // 511
      {"12FF0012FF01", "2100008800FF0141420000000000000000000000000000000000000F27"},
      {"12FF000A00", "21000080"},
  };
  for (const auto& [sent, answer] : kDialogue) EXPECT_EQ(bench.Ask(sent), answer) << sent;
  EXPECT_THAT(bench.complaints, IsEmpty());
  EXPECT_EQ(HexText(*bench.memory.clock()), "123400221126");
}

TEST(Conversation, RefusesWithAReason) {
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      // Without a mode, or in a mode that was entered with a password.
      {"", "12FF00", "too short"},
      {"", "13FF0000", "start no message"},
      {"", "12FF0077", "unknown code"},
      {"", "12FF0100", "byte 2 is not 0"},
      {"", "12FFFF00", "byte 2 is not 0"},
      {"", "12FF0180", "byte 2 is not 0"},  // only in the address byte of an OK may it be FF
      {"", "1212FF80", "byte 2 is not 0"},
      {"", "12FF000A", "4 bytes, not 5"},
      {"", "12FF000000", "5 bytes, not 4"},
      {"", "12FF000A03", "there is no mode 3"},
      {"", "12FF000C1234FF", "before a mode was set"},
      {"", "12FF0009123400221126", "needs mode 1, not 0"},
      {"4", "12FF00021500", "needs mode 1, not 4"},
      {"1", "12FF0012FF01", "needs mode 4, not 1"},
      {"1", "12FF0009243400221126", "byte 0 of the time"},
      {"1", "12FF0009123A00221126", "byte 1 of the time"},
      {"1", "12FF00021600", "no section 22 to read"},
      {"1", "12FF00010016000100AA", "no section 22 at version 110"},
      {"1", "12FF00010015000200AAAA", "section 21 has 2 bytes, not 3"},
      {"1", "12FF00010115000300AAAAAA", "first pack with sequence 1, not 0"},
      {"1", "12FF000E01AA", "next pack without a first"},
      {"2", "12FF0003000E000100AA", "no billing table 14"},
      {"2", "12FF00030000010100AA", "sector 1 where sector 0 is due"},
      {"2", "12FF00030000000000", "a billing sector of 0 bytes"},
      {"4", "12FF00120002", "no mini bar record 512"},
  };
  for (const auto& [mode, message, words] : kCases) {
    SCOPED_TRACE(message);
    PracticeBench bench;
    if (*mode != '\0') bench.Enter(*mode - '0');
    const std::string answer = bench.Ask(message, 2000);
    const std::string_view sent = message;
    const bool is_answered = sent.starts_with("12") && !sent.ends_with("80");  // an OK is never answered
    EXPECT_EQ(answer, is_answered ? kError : "");
    EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr(words)));
  }
}

TEST(Conversation, OpensModesByLevel) {
  LevelPasswords passwords;
  for (const auto& [level, digits] : {std::pair(1, "123456"), std::pair(2, "12345"), std::pair(3, "1234")})
    passwords.Set(level, PackPassword(digits).value());
  // Which of modes 1, 2 and 4 the packed password permits.
  const std::pair<const char*, const char*> kCases[] = {
      {"123456", "124"}, {"F12345", "24"}, {"1234FF", "4"}, {"AAAAAA", ""}};
  for (const auto& [password, opened] : kCases) {
    std::string found;
    for (const char mode : {'1', '2', '4'}) {
      PracticeBench bench;
      bench.memory.AddPasswords(passwords);
      bench.Ask(std::string("12FF000A0") + mode);
      if (bench.Ask(std::string("12FF000C") + password) == kOk) found += mode;
    }
    EXPECT_EQ(found, opened) << password;
  }
}

TEST(Conversation, PasswordHoldsForItsModeOnly) {
  PracticeBench bench;
  bench.Enter(1);
  EXPECT_EQ(bench.Ask("12FF000A01"), kOk);  // the same mode again
  EXPECT_EQ(bench.Ask(PracticeBench::Packs(0x01, 29, Hex("654321"))[0]), kOk);
  EXPECT_EQ(HexText(*bench.memory.passwords().Get(1)), "654321");
  EXPECT_EQ(bench.Ask("12FF000A04"), kOk);
  EXPECT_EQ(bench.Ask("12FF00120000"), kError);
  EXPECT_EQ(bench.Ask("12FF000A01"), kOk);
  EXPECT_EQ(bench.Ask("12FF00021500"), kError);
  EXPECT_EQ(bench.Ask("12FF000CAAAAAA"), kError);
  EXPECT_EQ(bench.Ask("12FF000C654321"), kOk);
}

TEST(Conversation, TakesLongSectionAcrossTheWrap) {
  PracticeBench bench;
  bench.Enter(1);
  const Bytes image = Pattern(27500);
  const std::vector<Bytes> packs = PracticeBench::Packs(0x01, 4, image);
  ASSERT_EQ(packs.size(), 467U);
  for (std::size_t i = 0; i < packs.size(); ++i) {
    ASSERT_EQ(bench.Ask(packs[i]), kOk) << i;
    // Suppose the reply was lost: the pack comes again, and the enquiry is answered with the next number.
    if (i % 51 != 0) continue;
    ASSERT_EQ(bench.Ask(packs[i]), kOk) << i;
    ASSERT_EQ(bench.Ask("12FF000D"), "21000089" + HexText(Bytes{static_cast<std::uint8_t>(i + 1)})) << i;
  }
  EXPECT_EQ(bench.Ask(packs.back()), kOk);
  EXPECT_EQ(bench.memory.sections()[4], image);
  EXPECT_THAT(bench.complaints, IsEmpty());
}

TEST(Conversation, TellsLostPackFromLostReply) {
  PracticeBench bench;
  bench.Enter(1);
  const std::vector<Bytes> packs = PracticeBench::Packs(0x01, 1, Pattern(400));
  EXPECT_EQ(bench.Ask("12FF000D"), "2100008900");  // the first pack was lost, so it is expected
  bench.Ask(packs[0]);
  bench.Ask(packs[1]);
  EXPECT_EQ(bench.Ask("12FF000D"), "2100008902");
  EXPECT_EQ(bench.Ask(packs[3]), kError);  // the third was lost
  EXPECT_EQ(bench.Ask("12FF000D"), "2100008902");
  Bytes cut = packs[2];
  cut.pop_back();
  EXPECT_EQ(bench.Ask(cut, 2000), kError);  // a pack that is not full ends the message
  EXPECT_EQ(bench.Ask("12FF000D"), "2100008900");
  EXPECT_EQ(bench.Ask(packs[2]), kError);
  EXPECT_TRUE(bench.memory.sections().empty());
  EXPECT_THAT(bench.complaints,
              ElementsAre(HasSubstr("sequence 3, not 2"), HasSubstr("58 bytes of data, not 59"),
                          HasSubstr("without a first")));
}

TEST(Conversation, SendsSectionInPacksAndEnquiresAfterSilence) {
  PracticeBench bench;
  bench.Enter(1);
  const Bytes image = Pattern(400);
  bench.memory.SetSection(1, image);
  const std::string first = "210000820001009001" + HexText(std::span(image).first(55));
  const std::string second = "2100008E01" + HexText(std::span(image).subspan(55, 59));
  const std::string third = "2100008E02" + HexText(std::span(image).subspan(114, 59));
  EXPECT_EQ(bench.Ask("12FF00020100"), first);
  EXPECT_EQ(bench.Ask("12FF00020100"), first);  // the tool asks again
  EXPECT_EQ(bench.Ask("12FFFF80"), second);
  bench.came.clear();
  bench.events.Run(4000);
  EXPECT_EQ(HexText(bench.came), "2100000D");
  EXPECT_EQ(bench.Ask("12FFFF8900"), second);  // it was lost
  bench.events.Run(4000);
  EXPECT_EQ(bench.Ask("12FFFF8901"), third);  // the tool's answer was lost
  bench.came.clear();
  bench.events.Run(16'000);  // three enquiries, then from the start
  EXPECT_EQ(HexText(bench.came), "2100000D2100000D2100000D" + first);
  EXPECT_EQ(bench.Ask("12FF0000"), kOk);  // any command ends it
  bench.came.clear();
  bench.events.Run(60'000);
  EXPECT_THAT(bench.came, IsEmpty());
}

}  // namespace
}  // namespace tarvok::test
