#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "link/port.h"
#include "link/send_log.h"
#include "link/uses.h"
#include "store/transport.h"

namespace tarvok::link {

/** The open port of a session, and how to write to it in the given mode. */
class PhysicalLine {
 public:
  /** `chunk_size`: serial writes are cut into pieces of this many bytes; 0 writes whole blocks. */
  PhysicalLine(LinkMode mode, int chunk_size, SendLog& log)
      : mode_(mode), chunk_size_(chunk_size), log_(log) {}

  /**
   * Writes the bytes as the mode requires. If the line is not open, nothing is written but a line in the
   * debug log.
   */
  void PhysicalSend(std::span<const std::uint8_t> bytes);
  /** Writes a modem command in one block, without logging. */
  bool Write(std::span<const std::uint8_t> bytes) { return IsOpen() && port_->Send(bytes); }

  void Take(std::unique_ptr<Port> port);
  /** Closes and releases the port. */
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
