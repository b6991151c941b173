#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "exchange/message_end.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/frame.h"
#include "link/port.h"

namespace tarvok::exchange {

class ModemCall;

/**
 * A Hayes modem in front of the exchange. A command line starts with AT and ends at CR; further ATs in it are
 * skipped, so that "ATH1ATDT123" dials. D with a number connects after a short time, and then the bytes of
 * the call pass through. The call ends when the exchange closes it, when the line's control signals drop, or
 * at an ATH0 after a second of silence.
 */
class Modem {
 public:
  using CallHandler = std::function<void(std::unique_ptr<Port>)>;

  /** `on_call` receives the port of each call, which may outlive the modem. */
  Modem(EventServer& events, std::unique_ptr<Port> line, CallHandler on_call);
  ~Modem();
  Modem(const Modem&) = delete;
  Modem& operator=(const Modem&) = delete;

  /** Called when the tool drops its control lines. */
  void LoseControlLines();

 private:
  friend class ModemCall;
  enum class State { kCommand, kDialling, kConnected };

  void Take(std::span<const std::uint8_t> bytes);
  void TakeCommandByte(std::uint8_t byte);
  void TakeCallBytes(std::span<const std::uint8_t> bytes);
  void PassHeld();
  void RunLine(std::string_view line);
  void Dial();
  void Connect();
  /** Ends the call on this side without reporting it to the line. */
  void EndCall(std::string_view reason);
  void Say(std::string_view words);

  EventServer& events_;
  std::unique_ptr<Port> line_;
  CallHandler on_call_;
  State state_ = State::kCommand;
  bool echo_ = true;  // of commands, until ATE0
  std::string command_;
  Bytes held_;  // bytes of a call that may become a hang-up command
  std::int64_t last_byte_ms_ = 0;
  ModemCall* call_ = nullptr;
  EventServer::TimerId timer_ = 0;
};

}  // namespace tarvok::exchange
