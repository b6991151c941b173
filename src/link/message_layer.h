#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "link/message.h"
#include "link/section_image.h"
#include "link/send_log.h"
#include "link/statistics.h"
#include "link/uses.h"
#include "link/waits.h"

namespace tarvok::link {

/** The exchange that messages are addressed to. With a direct connection to the CPU card both ids are 15. */
struct ExchangeAddress {
  int pbx_id = 15;   // 0 to 15
  int card_id = 15;  // 0 to 15
  bool direct = true;

  std::uint8_t byte() const { return static_cast<std::uint8_t>(pbx_id * 16 + card_id); }
};

/** The differences between the two message modules. */
struct MessageVariant {
  std::string_view get_config_words;
  std::string_view get_mini_bar_words;
  bool answers_enquiry;       // an Enquiry from the exchange gets a Respond Seq
  bool keeps_first_sequence;  // keep the first pack's sequence byte for the reply
  bool has_mini_bar_reply;    // GetMiniBar waits for the record; otherwise for a reply that never comes
  bool sums_send_time;        // sends of sections and mini bar records add to SendMilliseconds
};

/** Set by ReceiveMessage; read by the waiting operations and by sessions. */
struct MessageState {
  bool reply_ok = false;
  bool version_came = false;
  bool config_came = false;
  bool mini_bar_came = false;
  bool sequence_came = false;
  bool error_came = false;
  bool section_done = false;   // a section or mini bar record is complete; cleared by the session
  bool stop_on_error = false;  // do not retry after an error reply: set while the password form is open
  std::uint8_t send_sequence = 0;
  int last_received_sequence = 0;
  std::int64_t receive_offset = 0;
  int received_section = 0;
  int received_size = 0;  // as declared by the exchange
  int pbx_version = 0;    // hundredths
  std::string mini_bar_name;
  int mini_bar_count = 0;
};

/**
 * The commands to the exchange and its replies: messages of at most 64 bytes; longer ones are cut into packs
 * with a sequence number. Every operation waits, serving events, until the expected reply has come or all
 * tries have failed, and returns true if it came. Replies arrive through ReceiveMessage during those waits.
 * The derived module decides how a message is carried.
 */
class MessageLayer {
 public:
  struct Parts {
    Waits& waits;
    SendLog& log;
    TransferStatistics& statistics;
    ExchangeAddress address;
  };

  MessageLayer(Parts parts, const MessageVariant& variant) : parts_(parts), variant_(variant) {}
  virtual ~MessageLayer() = default;

  bool SendIdle();
  bool SendSetMode(ExchangeMode mode);
  /**
   * Sends the current time: hour, minute, weekday (Sunday 0), day, month, two-digit year. The decimal digits
   * are sent as hexadecimal digits, except for the weekday.
   */
  bool SendTime();
  bool GetVersion();
  bool CheckPassword(const std::array<std::uint8_t, 3>& password);
  bool SendConfig(int section, std::span<const std::uint8_t> image);
  /** True if the first pack came. The other packs arrive afterwards; section_done is set at the end. */
  bool GetConfig(int section);
  bool SendBillingTable(int table, int sector, std::span<const std::uint8_t> data);
  bool SendMiniBar(int number, std::span<const std::uint8_t> record);
  bool GetMiniBar(int number);

  /** Takes one whole message from the exchange. Drops it if it is invalid, too short or unexpected. */
  void ReceiveMessage(std::span<const std::uint8_t> message);
  /** Bytes still missing from the section in progress, by its declared size. */
  std::int64_t MissingBytes() const;
  /**
   * True if the last request has been answered completely. A mini bar record in the middle of a section also
   * raises the flag, but does not complete the section.
   */
  bool IsWhole() const {
    const bool section_came = receive_kind_ == ReceiveKind::kSection && MissingBytes() == 0;
    return state_.section_done && (asked_mini_bar_ >= 0 || section_came);
  }

  MessageState& state() { return state_; }
  const SectionImage& section_image() const { return section_image_; }

 protected:
  /** Sends one message of at most 64 bytes. */
  virtual void Carry(std::span<const std::uint8_t> message) = 0;

  Parts& parts() { return parts_; }

 private:
  static constexpr int kNotNumbered = -0x10000;  // no record number minus its index can be this low

  using Flag = bool MessageState::*;
  enum class ReceiveKind { kNone, kSection, kMiniBar };
  enum class Recovery { kArrived, kSendAgain, kFailed };

  static constexpr int kTries = 3;

  /** `tries` applies to the last pack of the message. */
  bool SendMessage(std::span<const std::uint8_t> payload, std::uint8_t code, Flag awaited, bool sequenced,
                   int tries = kTries);
  bool SendFullPack(std::span<const std::uint8_t> message, bool first);
  bool SendLastPack(std::span<const std::uint8_t> message, Flag awaited, int tries);
  Recovery RecoverByEnquiry(bool first);
  Recovery JudgeSequence(bool first);
  void SendEnquiry();
  bool SendSection(std::uint8_t code, int section, std::span<const std::uint8_t> data);

  void RespondOk();
  void RespondSeq();
  void ReceiveSequence(std::span<const std::uint8_t> message);
  void ReceiveError();
  void ReceiveVersion(std::span<const std::uint8_t> message);
  bool IsEarlierMiniBar(int number);
  void ReceiveMiniBarRecord(std::span<const std::uint8_t> message);
  void ReceiveMiniBarData();
  void ReceiveFirstPack(std::span<const std::uint8_t> message);
  void CountOutOfStep(std::uint8_t sequence);
  void ReceiveNextPack(std::span<const std::uint8_t> message);
  void TakeSectionBytes(std::span<const std::uint8_t> bytes);

  Parts parts_;
  const MessageVariant& variant_;
  MessageState state_;
  SectionImage section_image_;
  ReceiveKind receive_kind_ = ReceiveKind::kNone;
  int asked_section_ = -1;             // section of the latest GetConfig; -1 before the first
  int asked_mini_bar_ = -1;            // likewise for GetMiniBar; -1 if a section was requested since
  std::optional<int> first_mini_bar_;  // the number that the exchange gives to record 0
  int earlier_mini_bars_ = 0;          // records that arrived although they answer an earlier request
  int pack_before_ = -1;               // sequence byte of the previous later pack; -1 if there was none
  std::uint8_t first_pack_ = 0;        // sequence byte of the section's first pack; 0 if it has none
  // The first two differences seen: from the first pack to the next, and between later packs.
  std::optional<std::uint8_t> first_step_;
  std::optional<std::uint8_t> next_step_;
};

}  // namespace tarvok::link
