#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "exchange/exchange_memory.h"
#include "exchange/incoming_packs.h"
#include "exchange/message_end.h"
#include "exchange/outgoing_section.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/message.h"

namespace tarvok::exchange {

/**
 * The exchange's conversation with one tool. It is strict: every invalid message is answered with an error
 * reply and reported in one line. Data is accepted and sent only in the matching mode, after a password that
 * permits the mode. Mode 0 can be set at any time and ends what the password allowed.
 */
class Conversation {
 public:
  Conversation(EventServer& events, MessageEnd& end, ExchangeMemory& memory, Complain complain);

  /** Takes a message as received. */
  void Take(std::span<const std::uint8_t> message);
  /** Called before a command is examined: true answers it with an error reply, for practice. */
  void set_error_wish(std::function<bool()> wish) { error_wish_ = std::move(wish); }
  const IncomingPacks& packs() const { return packs_; }

 private:
  using Message = std::span<const std::uint8_t>;
  /** "" if the message was valid and has been answered; otherwise what is wrong with it. */
  using Refusal = std::string;

  static Refusal RefuseShape(Message message);
  Refusal RefuseMode(ExchangeMode needed) const;
  static ExchangeMode ModeFor(std::uint8_t code);

  Refusal Handle(Message message);
  Refusal TakePack(Message message);
  Refusal RefuseData(Message first_pack) const;
  void Store(const IncomingData& data);
  Refusal SetMode(int number);
  Refusal CheckPassword(Message message);
  Refusal SetTime(Message message);
  Refusal GetSection(int number);
  Refusal GetMiniBar(int number);
  void TakeAnswer(Message message);
  void Answer(std::uint8_t code, std::span<const std::uint8_t> payload = {});
  Refusal Ok() {
    Answer(reply::kOk);
    return "";
  }

  MessageEnd& end_;
  ExchangeMemory& memory_;
  Complain complain_;
  std::function<bool()> error_wish_;
  IncomingPacks packs_;
  OutgoingSection outgoing_;
  std::optional<ExchangeMode> allowed_;  // the mode that a password opened
};

}  // namespace tarvok::exchange
