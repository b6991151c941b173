#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "link/port.h"
#include "link/send_log.h"
#include "link/uses.h"

namespace tarvok::link {

/** How the exchange is reached: the project's key "By". Any other value is the server as well. */
enum class LinkMode : std::uint8_t { kServer = 0, kSerial = 1, kModem = 2, kLanToSerial = 3, kLan = 4 };

/** Link frames run on the byte streams; LAN and server carry whole messages. */
constexpr bool UsesFrames(LinkMode mode) {
  return mode == LinkMode::kSerial || mode == LinkMode::kModem || mode == LinkMode::kLanToSerial;
}
constexpr bool UsesSocket(LinkMode mode) {
  return mode != LinkMode::kSerial && mode != LinkMode::kModem;
}

/** The open port of a session and the way in which its mode writes to it. */
class PhysicalLine {
 public:
  /** `chunk_size`: on a serial line blocks go out in pieces of so many bytes, 0 for whole ones. */
  PhysicalLine(LinkMode mode, int chunk_size, SendLog& log)
      : mode_(mode), chunk_size_(chunk_size), log_(log) {}

  /** Writes the bytes by mode. A line that is not open takes nothing; the debug log says so. */
  void PhysicalSend(std::span<const std::uint8_t> bytes);
  /** Writes without a word in the log, as one block: modem commands. */
  bool Write(std::span<const std::uint8_t> bytes) { return IsOpen() && port_->Send(bytes); }

  void Take(std::unique_ptr<Port> port);
  /** Closes and lets go of the port. */
  void Close();
  bool IsOpen() const { return port_ != nullptr && port_->state() == PortState::kOpen; }
  Port* port() { return port_.get(); }
  LinkMode mode() const { return mode_; }

 private:
  void SendInPieces(std::span<const std::uint8_t> bytes);

  LinkMode mode_;
  int chunk_size_;
  SendLog& log_;
  std::unique_ptr<Port> port_;
};

}  // namespace tarvok::link
