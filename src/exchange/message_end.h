#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

#include "exchange/uses.h"

namespace tarvok::exchange {

/** Reports what the practice exchange objects to, one line per call. */
using Complain = std::function<void(std::string_view)>;

/** The exchange's end of a transport: it delivers messages from the tool and sends replies. */
class MessageEnd {
 public:
  using MessageHandler = std::function<void(std::span<const std::uint8_t>)>;

  virtual ~MessageEnd() = default;
  /** Sends one message of at most 64 bytes. */
  virtual void Send(std::span<const std::uint8_t> message) = 0;
  /** Called with each message as received, whatever its length. */
  void set_on_message(MessageHandler handler) { on_message_ = std::move(handler); }

 protected:
  void GiveMessage(std::span<const std::uint8_t> message) {
    if (on_message_) on_message_(message);
  }

 private:
  MessageHandler on_message_;
};

}  // namespace tarvok::exchange
