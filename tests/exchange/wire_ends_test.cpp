#include <gmock/gmock.h>

#include "link/frame.h"
#include "tests/exchange/practice_bench.h"

namespace tarvok::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const Bytes kIdle = {0x12, 0xFF, 0, 0};

/** The reply as a frame of the exchange. */
std::string Framed(std::string_view reply) {
  return HexText(BuildFrame(kExchangeAddress, Hex(reply)));
}
Bytes FromTool(std::string_view message) {
  return BuildFrame(kToolAddress, Hex(message));
}

constexpr const char* kEstablish = "100201100315";
constexpr const char* kAck0FromTool = "103001";
constexpr const char* kAck1FromTool = "103101";

TEST(LinkEnd, AnswersBadBytesAsTheLinkWantsIt) {
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      {"10020112FF0000100329", "101510", "bad check"},
      {"10021010"
       "12FF0000"
       "1003"
       "38",
       "", "without the address 1"},
      {"100505", "", "without the address 1"},
      {"100501", "103010", ""},  // Enq: the last Ack again
      {"1003", "", "without its start"},
      {"1044", "", "means nothing"},
      {"103001", "", ""},  // an Ack for nothing
  };
  for (const auto& [sent, answer, words] : kCases) {
    SCOPED_TRACE(sent);
    PracticeBench bench(Wire::kLink);
    bench.Ask(kEstablish);
    EXPECT_EQ(bench.Ask(sent), answer);
    if (*words == '\0') {
      EXPECT_THAT(bench.complaints, IsEmpty());
    } else {
      EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr(words)));
    }
    EXPECT_EQ(bench.Ask(FromTool("12FF0000")), "103110" + Framed("21000080"));  // and goes on
  }
}

TEST(LinkEnd, WantsAnEstablishAndShortFrames) {
  PracticeBench bench(Wire::kLink);
  EXPECT_EQ(bench.Ask(FromTool("12FF0000")), "");
  bench.Ask(kEstablish);
  EXPECT_EQ(bench.Ask(BuildFrame(kToolAddress, Bytes(64, 0x55))), "103110" + Framed(PracticeBench::kError));
  bench.Ask(kAck0FromTool);
  EXPECT_EQ(bench.Ask(BuildFrame(kToolAddress, Bytes(65, 0x10))), "");
  EXPECT_THAT(bench.complaints,
              ElementsAre(HasSubstr("before the first Establish"), HasSubstr("does not begin with 12H"),
                          HasSubstr("more than 64 bytes"), HasSubstr("without its start")));
}

TEST(LinkEnd, ChasesAFrameWithoutSendingItTwice) {
  PracticeBench bench(Wire::kLink);
  bench.Ask(kEstablish);
  const std::string reply = Framed("21000080");
  bench.Ask(BuildFrame(kToolAddress, kIdle));
  EXPECT_EQ(bench.Ask("101501"), reply);  // Nak: at once again
  bench.came.clear();
  bench.events.Run(300);
  EXPECT_EQ(HexText(bench.came), "100510");
  EXPECT_EQ(bench.Ask(kAck1FromTool), reply);  // the Ack of the frame before: this one was lost
  EXPECT_EQ(bench.Ask(kAck1FromTool), "");     // not chased now, so it says nothing
  bench.events.Run(300);
  EXPECT_EQ(bench.Ask(kAck0FromTool), "");  // only the Ack was lost
  bench.Ask(BuildFrame(kToolAddress, kIdle));
  bench.came.clear();
  bench.events.Run(60'000);
  std::string enquiries = "100510";
  for (int i = 1; i < 20; ++i) enquiries += "00100510";
  EXPECT_EQ(HexText(bench.came), enquiries);
  EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr("given up")));
}

TEST(LanEnd, CutsMessagesInAnySplit) {
  Bytes stream =
      Hex("12FF000A01"
          "12FF000C1234FF"
          "12FF0009123400221126");
  for (const Bytes& pack : PracticeBench::Packs(0x01, 9, Pattern(100))) {
    stream.insert(stream.end(), pack.begin(), pack.end());
  }
  const Bytes end =
      Hex("12FF000D"
          "12FF00020900"
          "12FFFF80"
          "12FFFF80"
          "12FF000A00");
  stream.insert(stream.end(), end.begin(), end.end());
  std::string whole;
  for (const std::size_t piece : {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{3},
                                  std::size_t{7}, std::size_t{64}, std::size_t{65}}) {
    PracticeBench bench;
    bench.tool.set_piece(piece);
    const std::string answers = bench.Ask(stream);
    if (whole.empty()) whole = answers;
    EXPECT_EQ(answers, whole) << piece;
    EXPECT_EQ(bench.memory.sections()[9], Pattern(100));
    EXPECT_THAT(bench.complaints, IsEmpty()) << piece;
  }
}

TEST(LanEnd, DropsWhatStartsNoMessageAndWaitsASecondForTheRest) {
  PracticeBench bench;
  EXPECT_EQ(bench.Ask("55AA"), "");
  EXPECT_EQ(bench.Ask("12FF"), "");
  EXPECT_EQ(bench.Ask("0000"), "21000080");
  EXPECT_EQ(bench.Ask("12FF000A", 900), "");
  EXPECT_EQ(bench.Ask("", 200), PracticeBench::kError);
  EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr("start no message"), HasSubstr("4 bytes, not 5")));
}

TEST(ServerEnd, SpeaksInPackets) {
  const auto packet = [](std::string_view start, std::string_view text) {
    Bytes bytes = Hex(start);
    const Bytes rest = Hex(text);
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    bytes.resize(129);
    return bytes;
  };
  const std::tuple<const char*, const char*, const char*, const char*> kCases[] = {
      {"2112000104", "12120000", "000000001100000421000080", ""},
      {"2112000204", "12120000", "", "wrong head"},
      {"2112000141", "12120000", "", "wrong head"},
      {"1212000104", "12120000", "", "start no message"},
      {"21FF000104", "12120000", "000000001100000421000080", "different addresses"},
      {"2112000104", "1212000001", "000000001100000421000080", "behind its message"},
  };
  for (const auto& [head, message, answer, words] : kCases) {
    for (const std::size_t piece : {std::size_t{0}, std::size_t{1}, std::size_t{128}}) {
      if (answer[0] == '\0' && piece != 0) continue;
      SCOPED_TRACE(head);
      PracticeBench bench(Wire::kServer);
      bench.tool.set_piece(piece);
      EXPECT_EQ(bench.Ask(packet(head, message)), answer);
      EXPECT_EQ(bench.complaints.empty(), *words == '\0');
      EXPECT_THAT(bench.complaints, ::testing::Each(HasSubstr(words)));
    }
  }
  PracticeBench bench(Wire::kServer);
  Bytes cut = packet("2112000104", "12120000");
  cut.pop_back();
  EXPECT_EQ(bench.Ask(cut, 2000), "");
  EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr("128 bytes, not 129")));
}

}  // namespace
}  // namespace tarvok::test
