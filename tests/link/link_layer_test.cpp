#include "link/link_layer.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "link/line_settings.h"
#include "link/password_code.h"
#include "tests/floors.h"
#include "tests/sections/coder_case.h"
#include "tests/simulation/virtual_events.h"
#include "tests/simulation/virtual_line.h"

namespace tarvok::test {
namespace {

/** The link on a virtual port; records its messages and log lines. */
class Link : public ::testing::Test {
 protected:
  Link() {
    log.set_debug(true);
    line.Take(std::move(ends.tool));
    link.Init(1, 0);
  }

  void Feed(const Bytes& bytes) {
    for (const std::uint8_t byte : bytes) link.ReceiveByte(byte);
  }
  void Feed(std::string_view hex) { Feed(Hex(hex)); }
  void FeedText(std::string_view text) { Feed(Bytes(text.begin(), text.end())); }
  void FeedFrame(const Bytes& data) { Feed(BuildFrame(kExchangeAddress, data)); }
  /** The bytes written since the last call. */
  Bytes Sent() {
    auto* port = static_cast<VirtualPort*>(line.port());
    Bytes bytes = port->sent();
    port->forget_writes();
    return bytes;
  }
  bool Logged(std::string_view text) const { return logged.find(text) != std::string::npos; }

  VirtualEvents events;
  Waits waits{events};
  std::string logged;
  SendLog log{[this](std::string_view text) { logged += text; }};
  TransferStatistics statistics;
  ModemReply modem;
  VirtualLine ends{events};
  PhysicalLine line{LinkMode::kSerial, 0, log};
  bool bench = false;
  std::vector<Bytes> messages;
  LinkLayer link{{line, waits, log, statistics, modem, [this] { return bench; },
                  [this](std::span<const std::uint8_t> m) { messages.emplace_back(m.begin(), m.end()); }}};
};

TEST_F(Link, SendsEstablishAndWaitsForTheLink) {
  EXPECT_FALSE(link.Establish());
  EXPECT_EQ(events.Tick_ms(), 3000);
  EXPECT_EQ(Sent(), Hex("10 02 01 10 03 15"));
  bench = true;
  EXPECT_TRUE(link.Establish());
  bench = false;
  events.CallLater(500, [&] { Feed("10 30 10"); });
  EXPECT_TRUE(link.Establish());
  EXPECT_EQ(events.Tick_ms(), 6500);
  EXPECT_TRUE(link.send_done());
}

TEST_F(Link, BuildsDataFrames) {
  const std::pair<std::string, std::string> cases[] = {
      {"12 FF 00 00", "10 02 01 12 FF 00 00 10 03 2A"},
      {"10", "10 02 01 10 10 10 03 26"},
      {"00 00 F8 00", "10 02 01 00 00 F8 00 10 03 11"},
      {"00 00 F7 00", "10 02 01 00 00 F7 00 10 03 10"},  // a check byte 10 stays single
  };
  for (const auto& [data, frame] : cases) {
    link.SendData(Hex(data));
    EXPECT_EQ(Sent(), Hex(frame)) << data;
  }
}

TEST_F(Link, AcknowledgesByCountAndDeliversInOrder) {
  for (int n = 1; n <= 10; ++n) {
    FeedFrame({0x21, 0, 0, 0x80, static_cast<std::uint8_t>(n), 0x10});
    EXPECT_EQ(Sent(), Hex(n % 2 == 1 ? "10 30 01" : "10 31 01")) << n;
  }
  ASSERT_EQ(messages.size(), 10U);
  EXPECT_EQ(messages[9], Hex("21 00 00 80 0A 10"));
  Feed("10 02 10 10 10 03 24");  // Establish from the exchange restarts the count
  EXPECT_EQ(Sent(), Hex("10 31 01"));
  Feed("10 05 10");
  EXPECT_EQ(Sent(), Hex("10 31 01"));
  EXPECT_EQ(messages.size(), 10U);
}

TEST_F(Link, RefusesDamagedFrames) {
  Feed("10 02 10 10 21 00 10 03 00");
  EXPECT_EQ(Sent(), Hex("10 15 01"));
  Feed("10 02 01 21 00 10 03 3F");  // the tool's own address: logged, no Nak
  EXPECT_EQ(Sent(), Bytes{});
  EXPECT_TRUE(Logged("!Error: invalid address."));
  Feed("10 03");
  EXPECT_TRUE(Logged("!ERROR: invalid data packet."));
  Feed("10 02 10 10 21 10 77");
  EXPECT_TRUE(Logged("!ERROR: invalid packet."));
  EXPECT_TRUE(messages.empty());
  // The machine is idle again: it accepts the next frame.
  FeedFrame(Hex("21 00 00 80"));
  EXPECT_EQ(messages.size(), 1U);
}

TEST_F(Link, StopsAtItsLimits) {
  FeedFrame(Bytes(64, 0x55));
  EXPECT_EQ(messages.size(), 1U);
  FeedFrame(Bytes(65, 0x55));
  EXPECT_TRUE(Logged("!ERROR: packet very long."));
  EXPECT_EQ(messages.size(), 1U);
  logged.clear();
  FeedFrame(Bytes(100, 0x10));  // doubled bytes may exceed the limit of a frame
  EXPECT_EQ(messages.size(), 2U);
  FeedFrame(Bytes(300, 0x10));
  EXPECT_TRUE(Logged("!ERROR: packet very long."));
  EXPECT_EQ(messages.size(), 2U);
}

TEST_F(Link, SendsSixEnqThenGivesUp) {
  link.SendData(Hex("12 FF 00 00"));
  Sent();
  std::vector<std::int64_t> enq_at;
  const auto tick = events.StartTimer(10, [&] {
    link.Poll();
    if (Sent() == Hex("10 05 01")) enq_at.push_back(events.Tick_ms());
  });
  events.Run(10'000);
  events.StopTimer(tick);
  EXPECT_EQ(enq_at, (std::vector<std::int64_t>{1010, 2020, 3030, 4040, 5050, 6060}));
  EXPECT_TRUE(link.send_done());
  EXPECT_TRUE(link.send_failed());
}

TEST_F(Link, RepliesToEnqDecideWhetherToResend) {
  const Bytes frame = BuildFrame(kToolAddress, Hex("12 FF 00 00"));
  link.SendData(Hex("12 FF 00 00"));  // the first frame: odd
  Sent();
  for (int i = 0; i < 10; ++i) Feed("10 31 10");
  EXPECT_EQ(Sent(), Bytes{});  // no Enq is pending, so a late Ack means nothing
  for (int i = 0; i < 102; ++i) link.Poll();
  EXPECT_EQ(Sent(), Hex("10 05 01"));
  Feed("10 31 10");
  EXPECT_EQ(Sent(), frame);
  Feed("10 31 10");
  EXPECT_EQ(Sent(), Bytes{});
  Feed("10 15 10");
  EXPECT_EQ(Sent(), frame);
  EXPECT_FALSE(link.send_done());
  Feed("10 30 10");
  EXPECT_TRUE(link.send_done());
  EXPECT_TRUE(link.is_up());
  Feed("10 15 10");
  EXPECT_EQ(Sent(), Bytes{});
}

TEST_F(Link, ReadsModemTextOutsideFrames) {
  int result = 0;
  for (const char* word :
       {"\r\nCONNECT 57600\r", "\nBUSY\r", "\nNO CARRIER\r", "\nNO DIALTONE\r", "\nOK\r"}) {
    FeedText(word);
    EXPECT_EQ(modem.result, ++result) << word;
  }
  for (const char* none : {"\nRINGING\r", "OK\r", "\r", "\nok\r", "\nNO CARR\r"}) {
    FeedText(none);
    EXPECT_EQ(modem.result, 0) << none;
  }
  EXPECT_EQ(modem.connect_text, "\nCONNECT 57600");
  FeedFrame(Hex("21 0A 4F 4B 0D"));  // inside a frame the same letters are data
  EXPECT_EQ(modem.result, 0);
  FeedText(std::string(5000, 'x'));
  EXPECT_EQ(link.ModemLine().size(), 1000U);
}

TEST(LineSettings, ParsesFourPartsOrFails) {
  EXPECT_EQ(ParseLineSettings("9600,n,8,1"), (LineSettings{9600, Parity::kNone, 8, StopBits::kOne}));
  const LineSettings even = {57600, Parity::kEven, 7, StopBits::kOneAndHalf};
  EXPECT_EQ(ParseLineSettings("57600,E,7,1.5"), even);
  for (const char* text :
       {"9600,n,8,1,n,8,1", "9600,n,81,n,8,1", "9600,n,81", "", ",,,", "x,n,8,1", "9600,m,8,1", "9600,n,9,1",
        "9600,n,8,3", "0,n,8,1", "9600,n,8,1,", "9600x,n,8,1"}) {
    EXPECT_EQ(ParseLineSettings(text), std::nullopt) << text;
  }
}

TEST(Password, PacksDigits) {
  EXPECT_EQ(PackPassword("1234"), (PackedPassword{0x12, 0x34, 0xFF}));
  EXPECT_EQ(PackPassword("120"), (PackedPassword{0xF1, 0x2A, 0xFF}));
  for (const char* none : {"", "1234567", "12a", "1 2", "-1"}) EXPECT_FALSE(PackPassword(none)) << none;
}

TEST(Password, WipeOverwritesMemory) {
  std::string password = "123456";
  const char* lay = password.data();
  password.resize(2);  // the rest is still in memory after the end
  Wipe(password);
  EXPECT_TRUE(password.empty());
  EXPECT_EQ(std::string(lay, 6), std::string(6, '\0'));
}

}  // namespace
}  // namespace tarvok::test
