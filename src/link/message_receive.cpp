// Handling of messages from the exchange: sets the flags that the operations wait for.

#include <array>
#include <utility>

#include "link/message_layer.h"
#include "store/number_text.h"

namespace tarvok::link {
void MessageLayer::ReceiveMessage(std::span<const std::uint8_t> message) {
  if (message.size() < kHeader || message[0] != kFromExchange || message[1] != 0) return;
  const MessageKind* kind = FindMessage(kFromExchange, message[kCodeAt]);
  if (kind == nullptr || message.size() < static_cast<std::size_t>(kind->least)) return;
  switch (kind->code) {
    case command::kEnquiry:
      if (variant_.answers_enquiry) RespondSeq();
      break;
    case reply::kSequence:
      ReceiveSequence(message);
      break;
    case reply::kOk:
      parts_.log.DebugLine("Res OK");
      state_.reply_ok = true;
      break;
    case reply::kError:
      ReceiveError();
      break;
    case reply::kVersion:
      ReceiveVersion(message);
      break;
    case reply::kMiniBarRecord:
      ReceiveMiniBarRecord(message);
      break;
    case reply::kMiniBarData:
      ReceiveMiniBarData();
      break;
    case reply::kSection:
      ReceiveFirstPack(message);
      break;
    case reply::kNextPack:
      ReceiveNextPack(message);
      break;
    default:
      break;
  }
}

void MessageLayer::RespondOk() {
  parts_.log.DebugLine("Send Respond OK");
  const std::uint8_t second = parts_.address.direct ? 0xFF : 0;
  Carry(std::array<std::uint8_t, 4>{kFromTool, parts_.address.byte(), second, reply::kOk});
}

void MessageLayer::RespondSeq() {
  const auto number = static_cast<std::uint8_t>(state_.last_received_sequence);
  parts_.log.DebugLine("Recieve ENQ, Send Res Seq = " + std::to_string(number));
  parts_.log.DebugLine("Send Respond Seq = " + std::to_string(number));
  const std::uint8_t second = parts_.address.direct ? 0xFF : 0;
  Carry(std::array<std::uint8_t, 5>{kFromTool, parts_.address.byte(), second, reply::kSequence, number});
}

void MessageLayer::ReceiveSequence(std::span<const std::uint8_t> message) {
  state_.last_received_sequence = message[kSequenceAt];
  state_.sequence_came = true;
  parts_.log.Line("Recieve Seq : " + std::to_string(message[kSequenceAt]));
}

void MessageLayer::ReceiveError() {
  parts_.log.Line("Ack Error Command");
  state_.error_came = true;
  ++parts_.statistics.response_errors;
}

void MessageLayer::ReceiveVersion(std::span<const std::uint8_t> message) {
  state_.pbx_version = WordAt(message, kHeader);
  parts_.log.Text("Reveive Version : " + PlainHundredths(state_.pbx_version));
  state_.version_came = true;
}

/**
 * True if a record has the number of an earlier request. The exchange may start numbering anywhere; the first
 * record shows where.
 */
bool MessageLayer::IsEarlierMiniBar(int number) {
  if (asked_mini_bar_ < 0) return false;
  if (!first_mini_bar_) first_mini_bar_ = number - asked_mini_bar_;
  const int record = number - *first_mini_bar_;
  return record >= 0 && record < asked_mini_bar_;
}

void MessageLayer::ReceiveMiniBarRecord(std::span<const std::uint8_t> message) {
  const int number = WordAt(message, kNumberAt);
  if (IsEarlierMiniBar(number)) {
    // Late or repeated: accepting it would shift this record and all later ones by a row.
    ++earlier_mini_bars_;
    ++parts_.statistics.packs_out_of_step;
    RespondOk();
    return;
  }
  state_.mini_bar_came = true;
  state_.section_done = true;
  state_.received_section = number;
  // A section that began in between was not requested. In the middle of a requested section, the record was
  // not.
  if (asked_mini_bar_ >= 0) receive_kind_ = ReceiveKind::kNone;
  state_.mini_bar_name.clear();
  for (const std::uint8_t byte : message.subspan(kMiniBarNameAt, kMiniBarNameBytes)) {
    if (byte != 0) state_.mini_bar_name += static_cast<char>(byte);
  }
  state_.mini_bar_count = WordAt(message, kMiniBarNameAt + kMiniBarNameBytes);
  parts_.statistics.bytes_taken += kMiniBarLoaded;
  RespondOk();
}

/** Ends a section in progress. No operation asks for these bytes, so they are not kept. */
void MessageLayer::ReceiveMiniBarData() {
  receive_kind_ = ReceiveKind::kMiniBar;
  state_.receive_offset = 0;
  RespondOk();
}

void MessageLayer::ReceiveFirstPack(std::span<const std::uint8_t> message) {
  const int section = WordAt(message, kNumberAt);
  if (asked_section_ >= 0 && section != asked_section_) {
    // Not the section that was requested: accepting it would store its bytes under the wrong name.
    receive_kind_ = ReceiveKind::kNone;
    ReceiveError();
    return;
  }
  receive_kind_ = ReceiveKind::kSection;
  state_.config_came = true;
  // The last pack of the previous section may have come twice, the second time after this request.
  state_.section_done = false;
  if (variant_.keeps_first_sequence) state_.last_received_sequence = message[kSequenceAt];
  first_pack_ = variant_.keeps_first_sequence ? message[kSequenceAt] : std::uint8_t{0};
  pack_before_ = -1;
  state_.received_section = section;
  state_.received_size = WordAt(message, kSizeAt);
  parts_.log.Line("GET CONFIG , " + std::to_string(section) +
                  " , size = " + std::to_string(state_.received_size));
  state_.receive_offset = 0;
  section_image_.Clear();
  parts_.statistics.bytes_received += state_.received_size;
  TakeSectionBytes(message.subspan(kFirstPackHeader));
}

/**
 * Each pack's number is the previous one plus a step, modulo 256; the first two packs determine the step. Any
 * other number means that a pack was repeated, late, or belongs to another section. The step after a
 * section's first pack is learnt separately, because the server does not number the first pack.
 */
void MessageLayer::CountOutOfStep(std::uint8_t sequence) {
  const int before = std::exchange(pack_before_, sequence);
  const auto step = static_cast<std::uint8_t>(sequence - (before < 0 ? first_pack_ : before));
  std::optional<std::uint8_t>& learnt = before < 0 ? first_step_ : next_step_;
  const bool repeat = before >= 0 && step == 0;  // the step cannot be learnt from it
  if (!learnt && !repeat) learnt = step;
  if (repeat || step != *learnt) ++parts_.statistics.packs_out_of_step;
}

void MessageLayer::ReceiveNextPack(std::span<const std::uint8_t> message) {
  state_.last_received_sequence = message[kSequenceAt];
  if (receive_kind_ != ReceiveKind::kSection) return;
  CountOutOfStep(message[kSequenceAt]);
  const auto bytes = message.subspan(kSequencedHeader);
  parts_.statistics.bytes_received += static_cast<std::int64_t>(bytes.size());
  TakeSectionBytes(bytes);
}

void MessageLayer::TakeSectionBytes(std::span<const std::uint8_t> bytes) {
  section_image_.Store(state_.receive_offset, bytes);
  parts_.statistics.bytes_taken += static_cast<std::int64_t>(bytes.size());
  state_.receive_offset += static_cast<std::int64_t>(bytes.size());
  if (state_.receive_offset >= state_.received_size) {
    parts_.log.Line("END GET CONFIG");
    state_.section_done = true;
  }
  RespondOk();
}

std::int64_t MessageLayer::MissingBytes() const {
  if (receive_kind_ != ReceiveKind::kSection) return 0;
  return std::max<std::int64_t>(0, state_.received_size - state_.receive_offset);
}

}  // namespace tarvok::link
