#include <gmock/gmock.h>

#include "tests/exchange/practice_bench.h"

namespace tarvok::test {
namespace {

using ::testing::IsEmpty;

Bytes Text(std::string_view text) {
  return {text.begin(), text.end()};
}

class ModemTest : public ::testing::Test {
 protected:
  ModemTest()
      : exchange_(events_, memory_, {}, [](std::string_view) {}),
        line_(events_),
        modem_(exchange_.AcceptModem(std::move(line_.exchange))) {
    line_.tool->set_on_bytes(
        [this](std::span<const std::uint8_t> bytes) { came_.append(bytes.begin(), bytes.end()); });
  }

  std::string Say(std::string_view text, int wait_ms) {
    came_.clear();
    line_.tool->Send(Text(text));
    events_.Run(wait_ms);
    return came_;
  }
  std::string SayHex(std::string_view hex) {
    came_.clear();
    line_.tool->Send(Hex(hex));
    events_.Run(10);
    return HexText(Text(came_));
  }
  void Dial() {
    Say("ATE0\r", 10);
    ASSERT_EQ(Say("ATDT123\r", 1000), "\r\nCONNECT 57600\r\n");
    ASSERT_EQ(exchange_.calls(), 1U);
  }

  VirtualEvents events_;
  ExchangeMemory memory_{110};
  PracticeExchange exchange_;
  VirtualLine line_;
  Modem& modem_;
  std::string came_;
};

TEST_F(ModemTest, AnswersCommands) {
  Say("ATE0\r", 10);
  const std::pair<const char*, const char*> kCases[] = {
      {"AT\r", "\r\nOK\r\n"},
      {"at s7=45 v1\r", "\r\nOK\r\n"},
      {"ATZ\r", "\r\nOK\r\n"},
      {"ATE0\r", "ATE0\r\r\nOK\r\n"},
      {"AT&F\r", "\r\nOK\r\n"},
      {"ATE0\r", "ATE0\r\r\nOK\r\n"},
      {"ATY7\r", "\r\nERROR\r\n"},
      {"\r\r\r", ""},
      {"hello\r", ""},
      {"ATQ\bX4\r", "\r\nOK\r\n"},
  };
  for (const auto& [command, answer] : kCases) EXPECT_EQ(Say(command, 10), answer) << command;
}

TEST_F(ModemTest, HangsUpAtACommandBehindSilenceOnly) {
  Dial();
  EXPECT_EQ(SayHex("100201100315"), "103010");
  EXPECT_EQ(Say("ATH0", 2000), "");  // no silence before: it is data
  EXPECT_EQ(exchange_.calls(), 1U);
  EXPECT_EQ(Say("ATX", 2000), "");
  EXPECT_EQ(Say("ATH", 2000), "");  // never finished: it is data after all
  EXPECT_EQ(exchange_.calls(), 1U);
  line_.tool->set_piece(1);
  EXPECT_EQ(Say("ATH0", 10), "\r\nOK\r\n");
  EXPECT_EQ(exchange_.calls(), 0U);
  line_.tool->set_piece(0);
  Dial();  // and can be called again
}

TEST_F(ModemTest, ReportsThatTheExchangeHungUp) {
  LineConditions conditions;
  conditions.faults = ParseFaultPlan("hangup-after=1").value();
  PracticeExchange rude(events_, memory_, conditions, {});
  VirtualLine line(events_);
  rude.AcceptModem(std::move(line.exchange)).set_echo(false);
  std::string came;
  line.tool->set_on_bytes(
      [&](std::span<const std::uint8_t> bytes) { came.append(bytes.begin(), bytes.end()); });
  line.tool->Send(Text("ATD5\r"));
  events_.Run(1000);
  for (int i = 0; i < 2; ++i) {
    came.clear();
    line.tool->Send(Hex("100201100315"));
    events_.Run(10);
    EXPECT_EQ(came, i == 0 ? std::string("\x10\x30\x10") : "\r\nNO CARRIER\r\n");
  }
  EXPECT_EQ(rude.calls(), 0U);
}

TEST_F(ModemTest, EndsTheCallWithTheLine) {
  Dial();
  line_.tool->HangUp();
  events_.Run(10);
  EXPECT_EQ(exchange_.calls(), 0U);
}

}  // namespace
}  // namespace tarvok::test
