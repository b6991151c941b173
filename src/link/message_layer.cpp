#include "link/message_layer.h"

#include <algorithm>
#include <vector>

#include "link/password_code.h"
#include "store/number_text.h"

namespace tarvok::link {
namespace {

constexpr std::int64_t kFullPackWait_ms = 4000;
constexpr std::int64_t kLastPackWait_ms = 3000;
constexpr std::int64_t kEnquiryWait_ms = 3000;

/** Reads the decimal digits of 0 to 99 as a hexadecimal number: 34 becomes 0x34. */
std::uint8_t AsHexDigits(int value) {
  return static_cast<std::uint8_t>(value / 10 * 16 + value % 10);
}

}  // namespace

bool MessageLayer::SendIdle() {
  parts_.log.Line("Send Idle");
  return SendMessage({}, command::kIdle, &MessageState::reply_ok, false);
}

bool MessageLayer::SendSetMode(ExchangeMode mode) {
  const auto value = static_cast<std::uint8_t>(mode);
  parts_.log.Line("Send set mode - " + std::to_string(value));
  return SendMessage({&value, 1}, command::kSetMode, &MessageState::reply_ok, false);
}

bool MessageLayer::SendTime() {
  constexpr int kBuddhistFrom = 2501;  // from here on, the computer uses a calendar that is 543 years ahead
  constexpr int kBuddhistAhead = 543;
  const WallClock now = parts_.waits.events().Now();
  const int year = now.year >= kBuddhistFrom ? now.year - kBuddhistAhead : now.year;
  const std::array<std::uint8_t, 6> time = {
      AsHexDigits(now.hour), AsHexDigits(now.minute), static_cast<std::uint8_t>(now.weekday),
      AsHexDigits(now.day),  AsHexDigits(now.month),  AsHexDigits(year % 100)};
  parts_.log.Line("Send Set Time");
  return SendMessage(time, command::kTime, &MessageState::reply_ok, false);
}

bool MessageLayer::GetVersion() {
  parts_.log.Line("Get version");
  return SendMessage({}, command::kGetVersion, &MessageState::version_came, false);
}

bool MessageLayer::CheckPassword(const std::array<std::uint8_t, 3>& password) {
  parts_.log.Line("Chk pass");
  return SendMessage(password, command::kCheckPassword, &MessageState::reply_ok, false);
}

bool MessageLayer::SendSection(std::uint8_t code, int section, std::span<const std::uint8_t> data) {
  const auto size = static_cast<int>(data.size());
  std::vector<std::uint8_t> payload = {LowByte(section), HighByte(section), LowByte(size), HighByte(size)};
  payload.insert(payload.end(), data.begin(), data.end());
  const std::int64_t start_ms = parts_.waits.events().Tick_ms();
  const bool sent = SendMessage(payload, code, &MessageState::reply_ok, true);
  if (variant_.sums_send_time) {
    parts_.statistics.send_ms += parts_.waits.events().Tick_ms() - start_ms;
  }
  Wipe(payload);
  return sent;
}

bool MessageLayer::SendConfig(int section, std::span<const std::uint8_t> image) {
  parts_.log.Line("Send Config:  " + std::to_string(section));
  return SendSection(command::kConfig, section, image);
}

bool MessageLayer::SendMiniBar(int number, std::span<const std::uint8_t> record) {
  parts_.log.Line("Send MiniBar :  " + std::to_string(number));
  return SendSection(command::kMiniBar, number, record);
}

bool MessageLayer::SendBillingTable(int table, int sector, std::span<const std::uint8_t> data) {
  parts_.log.Line("Send Billing Table = " + std::to_string(table));
  const auto size = static_cast<int>(data.size());
  std::vector<std::uint8_t> payload = {static_cast<std::uint8_t>(table), static_cast<std::uint8_t>(sector),
                                       LowByte(size), HighByte(size)};
  payload.insert(payload.end(), data.begin(), data.end());
  return SendMessage(payload, command::kBillingTable, &MessageState::reply_ok, true);
}

bool MessageLayer::GetConfig(int section) {
  parts_.log.Line(std::string(variant_.get_config_words) + std::to_string(section));
  asked_section_ = section;
  asked_mini_bar_ = -1;
  const std::array<std::uint8_t, 2> payload = {LowByte(section), HighByte(section)};
  return SendMessage(payload, command::kGetConfig, &MessageState::config_came, false);
}

bool MessageLayer::GetMiniBar(int number) {
  parts_.log.Line(std::string(variant_.get_mini_bar_words) + std::to_string(number));
  receive_kind_ = ReceiveKind::kNone;  // a section that was abandoned midway is over
  if (number == 0) first_mini_bar_.reset();
  asked_mini_bar_ = number;
  earlier_mini_bars_ = 0;
  const std::array<std::uint8_t, 2> payload = {LowByte(number), HighByte(number)};
  const Flag awaited =
      variant_.has_mini_bar_reply ? &MessageState::mini_bar_came : &MessageState::config_came;
  if (SendMessage(payload, command::kGetMiniBar, awaited, false)) return true;
  if (earlier_mini_bars_ == 0) return false;
  // Every reply carried an earlier number: this exchange does not number its records.
  parts_.statistics.packs_out_of_step -= earlier_mini_bars_;
  first_mini_bar_ = kNotNumbered;
  constexpr int kOnce = 1;  // either it replies at once or the line is already dead
  return SendMessage(payload, command::kGetMiniBar, awaited, false, kOnce);
}

bool MessageLayer::SendMessage(std::span<const std::uint8_t> payload, std::uint8_t code, Flag awaited,
                               bool sequenced, int tries) {
  const auto limit = static_cast<std::size_t>(sequenced ? kSequencedPayload : kPlainPayload);
  state_.send_sequence = 0;
  bool first = true;
  std::vector<std::uint8_t> message;
  message.reserve(kMaxMessage);
  const auto build = [&](std::span<const std::uint8_t> part) {
    message = {kFromTool, parts_.address.byte(), 0, first ? code : command::kNextPack};
    if (sequenced) message.push_back(state_.send_sequence);
    message.insert(message.end(), part.begin(), part.end());
  };

  while (payload.size() > limit) {
    build(payload.first(limit));
    if (!SendFullPack(message, first)) return false;
    ++state_.send_sequence;
    ++parts_.statistics.packets_sent;
    parts_.statistics.bytes_sent += static_cast<std::int64_t>(limit);
    payload = payload.subspan(limit);
    first = false;
  }
  build(payload);
  ++parts_.statistics.packets_sent;
  parts_.statistics.bytes_sent += static_cast<std::int64_t>(payload.size());
  const bool sent = SendLastPack(message, awaited, tries);
  Wipe(message);  // it may contain a password
  return sent;
}

bool MessageLayer::SendFullPack(std::span<const std::uint8_t> message, bool first) {
  state_.reply_ok = false;
  for (int attempt = 1; attempt <= kTries; ++attempt) {
    Carry(message);
    if (parts_.waits.Until([&] { return state_.reply_ok; }, kFullPackWait_ms)) return true;
    const Recovery recovery = RecoverByEnquiry(first);
    if (recovery == Recovery::kArrived) return true;
    if (recovery == Recovery::kFailed) return false;
  }
  return false;
}

MessageLayer::Recovery MessageLayer::RecoverByEnquiry(bool first) {
  for (int n = 1; n <= kTries && !parts_.waits.aborted(); ++n) {
    parts_.log.Line("Send Enquiry Seq : " + std::to_string(n));
    state_.sequence_came = false;
    SendEnquiry();
    if (parts_.waits.Until([&] { return state_.sequence_came; }, kEnquiryWait_ms))
      return JudgeSequence(first);
  }
  return Recovery::kFailed;
}

MessageLayer::Recovery MessageLayer::JudgeSequence(bool first) {
  const int received = state_.last_received_sequence;
  const int sent = state_.send_sequence;
  const std::string words = "Rev = " + std::to_string(received) + ", Send = " + std::to_string(sent);
  // The next number wraps modulo 256; otherwise a reply lost at the wrap would end the transfer.
  if ((received + 255) % 256 == sent) {
    parts_.log.Line("Seq OK, " + words);
    return Recovery::kArrived;
  }
  if (received == sent) {
    parts_.log.Line("Seq OK, " + words + "Send again");
    return Recovery::kSendAgain;
  }
  if (received - 1 > sent && first) {
    parts_.log.Line("Seq OK, " + words + "First pack Send again");
    return Recovery::kSendAgain;
  }
  parts_.log.Line("Seq conflict, " + words);
  return Recovery::kFailed;
}

bool MessageLayer::SendLastPack(std::span<const std::uint8_t> message, Flag awaited, int tries) {
  bool refused = false;
  for (int attempt = 1; attempt <= tries && !parts_.waits.aborted(); ++attempt) {
    state_.error_came = false;
    state_.*awaited = false;
    if (attempt > 1 && !refused) ++parts_.statistics.late_answers;
    Carry(message);
    const bool came = parts_.waits.Until([&] { return state_.*awaited; }, kLastPackWait_ms);
    refused = state_.error_came;
    if (refused) {
      if (state_.stop_on_error) return false;
      parts_.log.Line("get res err send this pack again");
    } else if (came) {
      return true;
    }
  }
  return false;
}

void MessageLayer::SendEnquiry() {
  parts_.log.Line("Send Enquriy");
  ++parts_.statistics.enquiry_count;
  Carry(std::array<std::uint8_t, 4>{kFromTool, parts_.address.byte(), 0, command::kEnquiry});
}

}  // namespace tarvok::link
