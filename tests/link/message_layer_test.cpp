#include "link/message_layer.h"

#include <deque>
#include <functional>

#include <gtest/gtest.h>

#include "link/message_modules.h"
#include "link/password_code.h"
#include "link/stream_reader.h"
#include "tests/floors.h"
#include "tests/sections/coder_case.h"
#include "tests/simulation/virtual_events.h"
#include "tests/simulation/virtual_line.h"

namespace tarvok::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr MessageVariant kSerialVariant = {"Get config - ", "Get minibar - ", true, true, true, true};

/** A message layer with scripted replies: one entry for each message sent, "" for silence. */
class Scripted : public MessageLayer {
 public:
  Scripted(Parts parts, VirtualEvents& events) : MessageLayer(parts, kSerialVariant), events_(events) {}

  std::deque<std::string> replies;
  std::vector<Bytes> sent;
  std::vector<std::int64_t> sent_at;

 private:
  void Carry(std::span<const std::uint8_t> message) override {
    sent.emplace_back(message.begin(), message.end());
    sent_at.push_back(events_.Tick_ms());
    if (replies.empty()) return;
    const Bytes reply = Hex(replies.front());
    replies.pop_front();
    if (!reply.empty()) events_.CallLater(1, [this, reply] { ReceiveMessage(reply); });
  }

  VirtualEvents& events_;
};

class Messages : public ::testing::Test {
 protected:
  VirtualEvents events;
  Waits waits{events};
  std::string logged;
  SendLog log{[this](std::string_view text) { logged += text; }};
  TransferStatistics statistics;
  Scripted layer{{waits, log, statistics, {1, 2, false}}, events};
};

constexpr const char* kOk = "21 00 00 80";
constexpr const char* kRefused = "21 00 00 8F";

TEST_F(Messages, EncodesCommands) {
  using Layer = MessageLayer&;
  const std::tuple<std::function<bool(Layer)>, std::string, std::string> cases[] = {
      {[](Layer m) { return m.SendIdle(); }, "12 12 00 00", kOk},
      {[](Layer m) { return m.SendSetMode(ExchangeMode::kMiniBar); }, "12 12 00 0A 04", kOk},
      {[](Layer m) { return m.SendTime(); }, "12 12 00 09 12 34 00 22 11 26", kOk},
      {[](Layer m) { return m.GetVersion(); }, "12 12 00 0B", "21 00 00 8B 6A 00"},
      {[](Layer m) { return m.CheckPassword(PackPassword("1234").value()); }, "12 12 00 0C 12 34 FF", kOk},
      {[](Layer m) { return m.GetConfig(4); }, "12 12 00 02 04 00", "21 00 00 82 00 04 00 02 00 AA BB"},
      {[](Layer m) { return m.SendConfig(40, Hex("01 02")); }, "12 12 00 01 00 28 00 02 00 01 02", kOk},
      {[](Layer m) { return m.SendMiniBar(511, Hex("07")); }, "12 12 00 11 00 FF 01 01 00 07", kOk},
      {[](Layer m) { return m.SendBillingTable(3, 9, Hex("07")); }, "12 12 00 03 00 03 09 01 00 07", kOk},
      {[](Layer m) { return m.GetMiniBar(511); }, "12 12 00 12 FF 01", "21 00 00 88 00 FF 01 41 00*19 07 00"},
  };
  const auto expect_sent = [&](const auto& send, const std::string& message, const std::string& reply) {
    layer.sent.clear();
    layer.replies = {reply};
    EXPECT_TRUE(send(layer)) << message;
    ASSERT_FALSE(layer.sent.empty());
    EXPECT_EQ(layer.sent[0], Hex(message));
  };
  events.set_now({2026, 11, 22, 12, 34, 0});
  for (const auto& [send, message, reply] : cases) expect_sent(send, message, reply);
  EXPECT_EQ(layer.state().pbx_version, 106);
  EXPECT_EQ(layer.state().mini_bar_name, "A");
  EXPECT_EQ(layer.state().mini_bar_count, 7);
  events.set_now({2569, 2, 1, 9, 5, 6});  // a Buddhist calendar is 543 years ahead
  expect_sent([](Layer m) { return m.SendTime(); }, "12 12 00 09 09 05 06 01 02 26", kOk);
}

TEST_F(Messages, CutsSectionIntoPacks) {
  layer.replies = {kOk, kOk, kOk};
  EXPECT_TRUE(layer.SendConfig(1, Bytes(55, 7)));
  ASSERT_EQ(layer.sent.size(), 1U);
  EXPECT_EQ(layer.sent[0].size(), 64U);
  EXPECT_TRUE(layer.SendConfig(1, Bytes(56, 7)));
  ASSERT_EQ(layer.sent.size(), 3U);
  EXPECT_EQ(layer.sent[2], Hex("12 12 00 0E 01 07"));
  EXPECT_EQ(statistics.packets_sent, 3);
  EXPECT_EQ(statistics.bytes_sent, 119);
}

TEST_F(Messages, RecoversFullPackByEnquiry) {
  const std::string again = "21 00 00 89 01";
  // Packs answered before; the replies from the next one on; the result, and the number of messages sent.
  const std::tuple<const char*, int, std::vector<std::string>, bool, int, const char*> cases[] = {
      {"lost reply", 3, {"", "21 00 00 89 04", kOk}, true, 3, "Seq OK, Rev = 4, Send = 3"},
      {"lost pack", 4, {"", "21 00 00 89 04", kOk, kOk}, true, 4, "Send = 4Send again"},
      {"conflict", 10, {"", "21 00 00 89 0D"}, false, 2, "Seq conflict, Rev = 13, Send = 10"},
      {"conflict in the first pack", 0, {"", "21 00 00 89 03", kOk, kOk}, true, 4, "First pack Send again"},
      {"lost reply at the wrap", 255, {"", "21 00 00 89 00", kOk}, true, 3, "Seq OK, Rev = 0, Send = 255"},
      {"no answer to three enquiries", 1, {"", "", "", ""}, false, 4, "Send Enquiry Seq : 3"},
      {"an ignored error reply", 1, {kRefused, "21 00 00 89 02", kOk}, true, 3, "Ack Error Command"},
      {"three tries", 1, {"", again, "", again, "", again}, false, 6, "Send again"},
  };
  for (const auto& [what, packs_before, replies, result, sent, words] : cases) {
    SCOPED_TRACE(what);
    logged.clear();
    layer.sent.clear();
    layer.replies.assign(static_cast<std::size_t>(packs_before), kOk);
    layer.replies.insert(layer.replies.end(), replies.begin(), replies.end());
    const int size = 59 * (packs_before + 1);  // one more full pack, then a short one
    EXPECT_EQ(layer.SendConfig(1, Bytes(static_cast<std::size_t>(size), 7)), result);
    EXPECT_EQ(static_cast<int>(layer.sent.size()) - packs_before, sent);
    EXPECT_NE(logged.find(words), std::string::npos) << logged;
  }
}

TEST_F(Messages, RetriesLastPackByResendingOnly) {
  layer.replies = {kRefused, kRefused, kOk};
  EXPECT_TRUE(layer.SendIdle());
  EXPECT_EQ(layer.sent_at, (std::vector<std::int64_t>{0, 3000, 6000}));
  EXPECT_EQ(statistics.response_errors, 2);
  EXPECT_EQ(statistics.enquiry_count, 0);

  layer.sent_at.clear();
  EXPECT_FALSE(layer.SendIdle());
  EXPECT_EQ(layer.sent_at.size(), 3U);

  layer.sent_at.clear();
  layer.state().stop_on_error = true;
  layer.replies = {kRefused, kOk};
  const std::int64_t start = events.Tick_ms();
  EXPECT_FALSE(layer.CheckPassword({1, 2, 3}));
  EXPECT_EQ(layer.sent_at.size(), 1U);
  EXPECT_EQ(events.Tick_ms() - start, 3000);
}

TEST_F(Messages, ReceivesSectionWithinBounds) {
  layer.replies = {"21 00 00 82 00 04 00 40 00 01*55"};
  ASSERT_TRUE(layer.GetConfig(4));
  EXPECT_FALSE(layer.state().section_done);
  EXPECT_EQ(layer.MissingBytes(), 9);
  layer.ReceiveMessage(Hex("21 00 00 8E 01 02*9"));
  EXPECT_TRUE(layer.state().section_done);
  EXPECT_EQ(layer.sent.back(), Hex("12 12 00 80"));
  EXPECT_EQ(layer.section_image().bytes()[54], 1);
  EXPECT_EQ(layer.section_image().bytes()[55], 2);
  EXPECT_EQ(statistics.bytes_received, 64 + 9);  // the declared size, and the later pack a second time
  layer.ReceiveMessage(Hex("21 00 00 0D"));
  EXPECT_EQ(layer.sent.back(), Hex("12 12 00 89 01"));
  EXPECT_EQ(statistics.packs_out_of_step, 0);
  layer.ReceiveMessage(Hex("21 00 00 8E 01 02*9"));
  EXPECT_EQ(statistics.packs_out_of_step, 1);

  // A section other than the requested one is refused, and its packs are dropped.
  layer.replies = {"21 00 00 82 00 05 00 40 00 01*55", "", ""};
  EXPECT_FALSE(layer.GetConfig(6));
  const std::size_t sent = layer.sent.size();
  layer.ReceiveMessage(Hex("21 00 00 8E 02 02*9"));
  EXPECT_EQ(layer.sent.size(), sent);

  // The largest possible size: bytes beyond the buffer are counted, not kept.
  layer.replies = {"21 00 00 82 00 07 00 FF FF 03*55"};
  ASSERT_TRUE(layer.GetConfig(7));
  EXPECT_EQ(layer.section_image().bytes()[55], 0);  // nothing remains of the previous section
  for (int i = 0; i < 1200; ++i) layer.ReceiveMessage(Hex("21 00 00 8E 00 04*59"));
  EXPECT_TRUE(layer.state().section_done);
  EXPECT_EQ(layer.section_image().bytes()[50000], 4);
}

TEST_F(Messages, CountsPacksOutOfSequence) {
  // Consecutive sections: the numbers of their packs, the first pack's first; and how many are out of
  // sequence.
  const std::tuple<const char*, std::vector<std::vector<int>>, int> cases[] = {
      {"in step", {{0, 1, 2, 3}, {0, 1, 2, 3, 4}, {0}, {0, 1}}, 0},
      {"over the wrap", {{253, 254, 255, 0, 1}, {255, 0, 1}}, 0},
      {"another step", {{0, 2, 4, 6}, {252, 254, 0, 2}}, 0},
      {"the first pack has no number", {{0, 5, 6, 7}, {0, 5, 6, 7}}, 0},
      {"repeated at once", {{0, 1, 1, 2}}, 1},
      {"repeated at once, in a later section", {{0, 1, 2, 3}, {0, 1, 2, 2}}, 1},
      {"repeated later", {{0, 1, 2, 3, 2, 4}}, 2},
      {"from the previous section, after the first pack", {{0, 1, 2, 3}, {0, 3, 1, 2}}, 2},
      {"from the previous section, later", {{0, 1, 2, 3, 4, 5, 6}, {0, 1, 2, 3, 6, 4, 5}}, 2},
      {"from the previous section, as the last one", {{0, 1, 2, 3, 4, 5, 6}, {0, 1, 2, 6}}, 1},
      {"one is missing", {{0, 1, 2, 3}, {0, 1, 3}}, 1}};
  for (const auto& [what, sections, out_of_step] : cases) {
    Scripted fresh{{waits, log, statistics, {1, 2, false}}, events};
    statistics = {};
    for (const std::vector<int>& packs : sections) {
      for (std::size_t i = 0; i < packs.size(); ++i) {
        Bytes message = i == 0 ? Hex("21 00 00 82 00 04 00 40 1F 01*55") : Hex("21 00 00 8E 00 01*59");
        message[4] = static_cast<std::uint8_t>(packs[i]);
        fresh.ReceiveMessage(message);
      }
    }
    EXPECT_EQ(statistics.packs_out_of_step, out_of_step) << what;
  }
}

TEST_F(Messages, CompletesRecordAndSectionSeparately) {
  const Bytes section = Hex("21 00 00 82 00 04 00 40 00 01*55");
  const Bytes record = Hex("21 00 00 88 00 03 00 41 00*19 07 00");
  // An unrequested section arrives before the record.
  events.CallLater(10, [&] { layer.ReceiveMessage(section); });
  events.CallLater(20, [&] { layer.ReceiveMessage(record); });
  ASSERT_TRUE(layer.GetMiniBar(3));
  EXPECT_TRUE(layer.IsWhole());
  EXPECT_EQ(layer.state().received_section, 3);
  // A record arrives in the middle of a section.
  layer.state().section_done = false;
  events.CallLater(10, [&] { layer.ReceiveMessage(section); });
  ASSERT_TRUE(layer.GetConfig(4));
  layer.ReceiveMessage(record);
  EXPECT_TRUE(layer.state().section_done);
  EXPECT_FALSE(layer.IsWhole());
  layer.ReceiveMessage(Hex("21 00 00 8E 01 02*9"));
  EXPECT_TRUE(layer.IsWhole());
}

TEST_F(Messages, RequestsMiniBarRecordAgainIfNumberDiffers) {
  const std::string before = "21 00 00 88 00 03 01 41 00*19 07 00";
  const std::string asked = "21 00 00 88 00 04 01 42 00*19 08 00";
  layer.replies = {before};
  EXPECT_TRUE(layer.GetMiniBar(259));
  layer.sent.clear();
  layer.replies = {before, "", asked};
  EXPECT_TRUE(layer.GetMiniBar(260));
  EXPECT_EQ(layer.state().mini_bar_name, "B");
  EXPECT_EQ(layer.sent.size(), 4U);  // two requests, and an OK to each reply
  EXPECT_EQ(statistics.packs_out_of_step, 1);
  layer.ReceiveMessage(Hex(before));
  EXPECT_EQ(layer.state().mini_bar_count, 8);

  // An exchange that numbers from 1, and one that does not number: only its second record is requested four
  // times.
  statistics = {};
  for (const auto& [number, requests_of_second] : {std::pair{1, 1U}, {0, 4U}}) {
    for (int record = 0; record < 4; ++record) {
      const std::size_t requests = record == 1 ? requests_of_second : 1;
      const std::string reply =
          "21 00 00 88 00 0" + std::to_string(number * (record + 1)) + " 00 41 00*19 07 00";
      layer.replies.clear();
      for (std::size_t i = 0; i < requests; ++i) layer.replies.insert(layer.replies.end(), {reply, ""});
      layer.sent.clear();
      EXPECT_TRUE(layer.GetMiniBar(record));
      EXPECT_EQ(layer.sent.size(), 2 * requests) << number << " " << record;
    }
  }
  EXPECT_EQ(statistics.packs_out_of_step, 0);
}

TEST_F(Messages, DropsInvalidMessages) {
  for (const char* hex :
       {"", "21", "21 00 00", "22 00 00 80", "21 01 00 80", "21 01 00 8F", "21 00 00 89", "21 00 00 8B 6A",
        "21 00 00 82 00 01 00 01", "21 00 00 88 00*24", "21 00 00 84 00", "21 00 00 8E", "21 00 00 77"}) {
    layer.ReceiveMessage(Hex(hex));
  }
  const MessageState& state = layer.state();
  EXPECT_FALSE(state.reply_ok || state.error_came || state.sequence_came || state.version_came ||
               state.config_came);
  EXPECT_FALSE(state.mini_bar_came || state.section_done);
  EXPECT_TRUE(layer.sent.empty());
  layer.ReceiveMessage(Hex("21 00 00 8E 05 01"));  // no section in progress: its sequence is kept, no reply
  EXPECT_EQ(state.last_received_sequence, 5);
  EXPECT_TRUE(layer.sent.empty());
}

TEST_F(Messages, ServerPacksEveryMessageInto129Bytes) {
  VirtualLine ends(events);
  VirtualPort& port = *ends.tool;
  PhysicalLine line(LinkMode::kServer, 0, log);
  line.Take(std::move(ends.tool));
  ServerMessages server({waits, log, statistics, {1, 2, false}}, line);
  EXPECT_FALSE(server.SendIdle());
  ASSERT_EQ(port.writes().size(), 3U);
  EXPECT_EQ(port.writes()[0], Hex("21 12 00 01 04 12 12 00 00 00*120"));
  EXPECT_NE(logged.find("Send : 0\r\nData Out = 18-18-0-0-\r\n"), std::string::npos);
  // A mini bar record sets a flag other than the one awaited.
  events.CallLater(10, [&] { server.ReceiveMessage(Hex("21 00 00 88 00 FF 01 41 00*19 07 00")); });
  EXPECT_FALSE(server.GetMiniBar(511));
  EXPECT_TRUE(server.state().section_done);
}

/**
 * The messages that a reader finds in reads that arrive `pause_ms` apart; an empty one for each that broke
 * off.
 */
template <typename Reader>
std::vector<Bytes> Found(Reader& reader, const std::vector<std::string>& reads, std::int64_t pause_ms = 1) {
  std::vector<Bytes> found;
  std::int64_t tick_ms = 0;
  for (const std::string& read : reads) {
    const bool joins =
        reader.Feed(Hex(read), tick_ms += pause_ms, [&](auto m) { found.emplace_back(m.begin(), m.end()); });
    if (!joins) found.emplace_back();
  }
  return found;
}

TEST(LanReader, CutsTheStreamIntoMessages) {
  const std::pair<std::vector<std::string>, std::vector<std::string>> cases[] = {
      {{"21 00 00 80"}, {"21 00 00 80"}},
      {{"21", "00 00", "80"}, {"21 00 00 80"}},
      {{"21 00 00 80 21 00 00 89 05"}, {"21 00 00 80", "21 00 00 89 05"}},
      {{"21 00 00 80 21"}, {"21 00 00 80"}},
      {{"21 00 00 80 07"}, {"21 00 00 80 07"}},
      {{"55 21 00 00 80"}, {}},
      {{"21 00 00 82 00 01 00 02 00 AA", "BB"}, {"21 00 00 82 00 01 00 02 00 AA BB"}},
      {{"21 00 00 82 00 01 00 FF FF 01*54", "01"}, {"21 00 00 82 00 01 00 FF FF 01*55"}},
      {{"21 00 00 8E 01 21 00", "21"}, {"21 00 00 8E 01 21 00 21"}},
      {{"21 00 00 77 01 02 03"}, {"21 00 00 77 01 02 03"}},
  };
  for (const auto& [reads, messages] : cases) {
    LanReader reader([] { return 3; });
    std::vector<Bytes> expected;
    for (const std::string& message : messages) expected.push_back(Hex(message));
    EXPECT_EQ(Found(reader, reads), expected) << reads[0];
  }
  LanReader late([] { return 3; });
  EXPECT_TRUE(Found(late, {"21", "00 00 80"}, 1001).empty());
}

/** The first bytes of a hex text without repetitions. */
std::string FirstOf(const std::string& hex, std::size_t bytes) {
  return hex.substr(0, 3 * bytes);
}

TEST(LanReader, TakesMessageRepeatedAfterItsBeginning) {
  const std::string packs[] = {
      "21 00 00 80",
      "21 00 00 89 05",
      "21 00 00 8B 6E 00",
      "21 00 00 88 00 03 00 41 " + Repeated("00 ", 19) + "07 00",
      "21 00 00 82 00 04 00 40 1F " + Repeated("01 ", 55),
      "21 00 00 8E 01 " + Repeated("02 ", 59),
  };
  for (const std::string& pack : packs) {
    const std::size_t size = Hex(pack).size();
    for (std::size_t came = 1; came < size; ++came) {
      LanReader reader([] { return 100; });
      EXPECT_EQ(Found(reader, {FirstOf(pack, came), pack}), (std::vector<Bytes>{Hex(pack), {}}))
          << came << " of " << pack;
    }
  }
  // Complete after joining, although the second read could be a message of its own.
  LanReader reader([] { return 9; });
  EXPECT_EQ(Found(reader, {"21 00 00 8E 01 02*5", "21 00 00 80"}),
            std::vector<Bytes>{Hex("21 00 00 8E 01 02*5 21 00 00 80")});
}

TEST(ServerReader, TakesPacketRepeatedAfterItsBeginning) {
  for (const std::string& message : {std::string("21 00 00 80 "), "21 00 00 8E 01 " + Repeated("02 ", 59)}) {
    for (const char* padding : {"", "00*56"}) {
      const std::string length = message.size() < 20 ? "04 " : "40 ";
      const std::string packet = "00 00 00 00 11 00 00 " + length + message;
      for (std::size_t came = 1; came < Hex(packet).size(); ++came) {
        ServerReader reader;
        std::vector<Bytes> expected = {Hex(message)};
        if (came >= 10) expected.emplace_back();  // fewer bytes may be the padding of a packet
        EXPECT_EQ(Found(reader, {FirstOf(packet, came), packet + padding}), expected)
            << came << " of " << packet;
      }
    }
  }
}

TEST(ServerReader, SplitsReadsIntoPackets) {
  const std::string ok = "00 00 00 00 11 00 00 04 21 00 00 80";
  const std::string block = ok + " 00*116";
  const std::pair<std::vector<std::string>, std::size_t> cases[] = {
      {{block + " 00"}, 0},  // 129 bytes
      {{"00 00 00 00 12 00 00 04 21 00 00 80"}, 0},
      {{"00 00 00 00 11 00 00 41 21*65"}, 0},
      {{"00 00 00 00 11 00 00 04 21 00", "00 80"}, 1},
      {{"11 00 00 00 11 00 00 04 21 00 00 80 00*116", "11 00 00 00 11 00 00 04 21 00 00 80 11*116",
        "11 00 00 00 11 00 00 04 21 00 00 80 00*116"},
       3},
      {{ok, "00*116 " + ok, "00*116"}, 2},  // longer than 128 bytes only because of leading padding
  };
  for (const auto& [reads, messages] : cases) {
    ServerReader reader;
    EXPECT_EQ(Found(reader, reads).size(), messages) << reads[0];
  }
  ServerReader late;
  EXPECT_TRUE(Found(late, {"00 00 00 00 11 00 00 04 21 00", "00 80"}, 1001).empty());
}

/** Messages 21 00 01.., 21 00 02.. of the same length, and the stream of their packets. */
std::pair<std::vector<Bytes>, Bytes> PacketStream(std::string_view head, std::uint8_t length, bool padded) {
  std::vector<Bytes> messages;
  Bytes stream;
  for (std::uint8_t i = 1; i <= 12; ++i) {
    Bytes packet = Hex(head);
    packet.push_back(length);
    packet.insert(packet.end(), {kFromExchange, 0});
    packet.resize(8U + length, i);
    messages.emplace_back(packet.begin() + 8, packet.end());
    if (padded) packet.resize(kServerReadIn);
    stream.insert(stream.end(), packet.begin(), packet.end());
  }
  return {messages, stream};
}

TEST(ServerReader, FindsEveryPacketHoweverReadsAreSplit) {
  for (const char* head : {"00 00 00 00 11 00 00", "21 11 00 01 11 00 00"}) {  // 11 may also be an address
    for (const int length : {4, 5, 35, 64}) {
      for (const bool padded : {false, true}) {
        const auto [messages, stream] = PacketStream(head, static_cast<std::uint8_t>(length), padded);
        for (const std::size_t cut : {std::size_t{1}, std::size_t{2}, std::size_t{3}, std::size_t{5},
                                      std::size_t{127}, std::size_t{128}, std::size_t{129}, stream.size()}) {
          SCOPED_TRACE(std::string(head) + ", " + std::to_string(length) + (padded ? " padded" : "") +
                       " in reads of " + std::to_string(cut));
          ServerReader reader;
          std::vector<Bytes> found;
          for (std::size_t at = 0; at < stream.size(); at += cut) {
            const auto read = std::span(stream).subspan(at, std::min(cut, stream.size() - at));
            reader.Feed(read, static_cast<std::int64_t>(at),
                        [&](auto m) { found.emplace_back(m.begin(), m.end()); });
          }
          // A read above 128 bytes is dropped unless it consists of whole packets: three of 43 bytes, or the
          // whole stream.
          const bool lossy = cut == 129 && (padded || length != 35);
          EXPECT_TRUE(lossy || found == messages) << found.size();
          for (const Bytes& message : found)
            EXPECT_TRUE(std::count(messages.begin(), messages.end(), message) == 1);
        }
      }
    }
  }
}

}  // namespace
}  // namespace tarvok::test
