#include <gmock/gmock.h>

#include "link/frame.h"
#include "tests/exchange/practice_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

const Bytes kIdle = {0x12, 0xFF, 0, 0};

/** The reply as a frame from the exchange. */
std::string Framed(std::string_view reply) {
  return HexText(BuildFrame(kExchangeAddress, Hex(reply)));
}
Bytes FromTool(std::string_view message) {
  return BuildFrame(kToolAddress, Hex(message));
}

constexpr const char* kEstablish = "100201100315";
constexpr const char* kAck0FromTool = "103001";
constexpr const char* kAck1FromTool = "103101";

TEST(LinkEnd, AnswersInvalidBytes) {
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      {"10020112FF0000100329", "101510", "bad check"},
      {"1002101012FF0000100338", "", "without the address 1"},
      {"100505", "", "without the address 1"},
      {"100501", "103010", ""},  // Enq: repeats the last Ack
      {"1003", "", "without its start"},
      {"1044", "", "means nothing"},
      {"103001", "", ""},  // an Ack for nothing
  };
  for (const auto& [sent, answer, words] : kCases) {
    SCOPED_TRACE(sent);
    PracticeBench bench(Wire::kLink);
    bench.Ask(kEstablish);
    EXPECT_EQ(bench.Ask(sent), answer);
    EXPECT_EQ(bench.complaints.size(), *words == '\0' ? 0U : 1U);
    EXPECT_THAT(bench.complaints, ::testing::Each(HasSubstr(words)));
    EXPECT_EQ(bench.Ask(FromTool("12FF0000")), "103110" + Framed("21000080"));  // and continues
  }
}

TEST(LinkEnd, RequiresEstablishAndShortFrames) {
  PracticeBench bench(Wire::kLink);
  EXPECT_EQ(bench.Ask(FromTool("12FF0000")), "");
  bench.Ask(kEstablish);
  EXPECT_EQ(bench.Ask(BuildFrame(kToolAddress, Bytes(64, 0x55))), "103110" + Framed(kError));
  bench.Ask(kAck0FromTool);
  EXPECT_EQ(bench.Ask(BuildFrame(kToolAddress, Bytes(65, 0x10))), "");
  EXPECT_THAT(bench.complaints,
              ElementsAre(HasSubstr("before the first Establish"), HasSubstr("does not begin with 12H"),
                          HasSubstr("more than 64 bytes"), HasSubstr("without its start")));
}

TEST(LinkEnd, EnquiresInsteadOfRepeatingAFrame) {
  PracticeBench bench(Wire::kLink);
  bench.Ask(kEstablish);
  const std::string reply = Framed("21000080");
  bench.Ask(BuildFrame(kToolAddress, kIdle));
  EXPECT_EQ(bench.Ask("101501"), reply);  // Nak: repeated at once
  bench.came.clear();
  bench.events.Run(300);
  EXPECT_EQ(HexText(bench.came), "100510");
  EXPECT_EQ(bench.Ask(kAck1FromTool), reply);  // the Ack of the previous frame: this one was lost
  EXPECT_EQ(bench.Ask(kAck1FromTool), "");     // no enquiry is pending, so it means nothing
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

TEST(LanEnd, CutsMessagesHoweverTheyAreSplit) {
  std::string stream = "12FF000A01 12FF000C1234FF 12FF0009123400221126 ";
  for (const Bytes& pack : PracticeBench::Packs(0x01, 9, Pattern(100))) stream += HexText(pack);
  stream += "12FF000D 12FF00020900 12FFFF80 12FFFF80 12FF000A00";
  std::string whole;
  for (const std::size_t piece : {0U, 1U, 2U, 3U, 7U, 64U, 65U}) {
    PracticeBench bench;
    bench.tool.set_piece(piece);
    const std::string answers = bench.Ask(stream);
    if (whole.empty()) whole = answers;
    EXPECT_EQ(answers, whole) << piece;
    EXPECT_EQ(bench.memory.sections()[9], Pattern(100));
    EXPECT_THAT(bench.complaints, IsEmpty()) << piece;
  }
}

TEST(LanEnd, DropsInvalidStartAndWaitsASecondForTheRest) {
  PracticeBench bench;
  EXPECT_EQ(bench.Ask("55AA"), "");
  EXPECT_EQ(bench.Ask("12FF"), "");
  EXPECT_EQ(bench.Ask("0000"), "21000080");
  EXPECT_EQ(bench.Ask("12FF000A", 900), "");
  EXPECT_EQ(bench.Ask("", 200), kError);
  EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr("start no message"), HasSubstr("4 bytes, not 5")));
}

TEST(ServerEnd, SendsAndReceivesPackets) {
  const auto packet = [](const std::string& start, const std::string& text, std::size_t size = 129) {
    Bytes bytes = Hex(start + text);
    bytes.resize(size);
    return bytes;
  };
  const std::tuple<const char*, const char*, const char*, const char*> kCases[] = {
      {"2112000104", "12120000", "000000001100000421000080", ""},
      {"2112000204", "12120000", "", "wrong head"},
      {"2112000141", "12120000", "", "wrong head"},
      {"1212000104", "12120000", "", "start no message"},
      {"21FF000104", "12120000", "000000001100000421000080", "different addresses"},
      {"2112000104", "1212000001", "000000001100000421000080", "after its message"},
  };
  for (const auto& [head, message, answer, words] : kCases) {
    for (const std::size_t piece : {0U, 1U, 128U}) {
      if (answer[0] == '\0' && piece != 0) continue;
      SCOPED_TRACE(head);
      PracticeBench bench(Wire::kServer);
      bench.tool.set_piece(piece);
      EXPECT_EQ(bench.Ask(packet(head, message)), answer);
      EXPECT_EQ(bench.complaints.size(), *words == '\0' ? 0U : 1U);
      EXPECT_THAT(bench.complaints, ::testing::Each(HasSubstr(words)));
    }
  }
  PracticeBench bench(Wire::kServer);
  EXPECT_EQ(bench.Ask(packet("2112000104", "12120000", 128), 2000), "");
  EXPECT_THAT(bench.complaints, ElementsAre(HasSubstr("128 bytes, not 129")));
}

Bytes Text(std::string_view text) {
  return {text.begin(), text.end()};
}

struct ModemBench {
  explicit ModemBench(const LineConditions& conditions = {})
      : exchange(events, memory, conditions, [](std::string_view) {}),
        modem(exchange.AcceptModem(std::move(line.exchange))) {
    line.tool->set_on_bytes(
        [this](std::span<const std::uint8_t> bytes) { came.append(bytes.begin(), bytes.end()); });
  }

  std::string Say(std::string_view text, int wait_ms) {
    came.clear();
    line.tool->Send(Text(text));
    events.Run(wait_ms);
    return came;
  }
  std::string SayHex(std::string_view hex) {
    const Bytes bytes = Hex(hex);
    return HexText(Text(Say({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, 10)));
  }
  void Dial() {
    Say("ATE0\r", 10);
    ASSERT_EQ(Say("ATDT123\r", 1000), "\r\nCONNECT 57600\r\n");
    ASSERT_EQ(exchange.calls(), 1U);
  }

  VirtualEvents events;
  ExchangeMemory memory{110};
  PracticeExchange exchange;
  VirtualLine line{events};
  Modem& modem;
  std::string came;
};

TEST(ModemEnd, AnswersCommands) {
  ModemBench bench;
  bench.Say("ATE0\r", 10);
  const std::pair<const char*, const char*> kCases[] = {{"AT\r", "\r\nOK\r\n"},
                                                        {"at s7=45 v1\r", "\r\nOK\r\n"},
                                                        {"ATZ\r", "\r\nOK\r\n"},
                                                        {"ATE0\r", "ATE0\r\r\nOK\r\n"},
                                                        {"AT&F\r", "\r\nOK\r\n"},
                                                        {"ATE0\r", "ATE0\r\r\nOK\r\n"},
                                                        {"ATY7\r", "\r\nERROR\r\n"},
                                                        {"\r\r\r", ""},
                                                        {"hello\r", ""},
                                                        {"ATQ\bX4\r", "\r\nOK\r\n"}};
  for (const auto& [command, answer] : kCases) EXPECT_EQ(bench.Say(command, 10), answer) << command;
}

TEST(ModemEnd, HangsUpOnlyAtACommandAfterSilence) {
  ModemBench bench;
  bench.Dial();
  EXPECT_EQ(bench.SayHex("100201100315"), "103010");
  EXPECT_EQ(bench.Say("ATH0", 2000), "");  // no silence before it: it is data
  EXPECT_EQ(bench.exchange.calls(), 1U);
  EXPECT_EQ(bench.Say("ATX", 2000), "");
  EXPECT_EQ(bench.Say("ATH", 2000), "");  // never completed: it is data
  EXPECT_EQ(bench.exchange.calls(), 1U);
  bench.line.tool->set_piece(1);
  EXPECT_EQ(bench.Say("ATH0", 10), "\r\nOK\r\n");
  EXPECT_EQ(bench.exchange.calls(), 0U);
  bench.line.tool->set_piece(0);
  bench.Dial();  // and accepts another call
}

TEST(ModemEnd, EndsTheCallWhenEitherEndHangsUp) {
  ModemBench rude(Faults("hangup-after=1"));
  rude.Dial();
  EXPECT_EQ(rude.SayHex("100201100315"), "103010");
  EXPECT_EQ(rude.Say("\x10\x02\x01\x10\x03\x15", 10), "\r\nNO CARRIER\r\n");
  EXPECT_EQ(rude.exchange.calls(), 0U);
  ModemBench bench;
  bench.Dial();
  bench.line.tool->HangUp();
  bench.events.Run(10);
  EXPECT_EQ(bench.exchange.calls(), 0U);
}

}  // namespace
}  // namespace tarvok::test
