#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "link/line_settings.h"
#include "link/uses.h"
#include "store/connection_settings.h"

namespace tarvok::link {

enum class PortState { kConnecting, kOpen, kError, kClosed };

/** The result of an operation that not every port supports. */
enum class PortAnswer { kDone, kFailed, kUnsupported };

/**
 * A byte stream: a serial line, a TCP socket, or a port that wraps another one to damage, pace or trace its
 * bytes.
 *
 * Handlers run on the event thread, never from within Send, and not after Close. Operations that a port does
 * not support report it.
 */
class Port {
 public:
  using BytesHandler = std::function<void(std::span<const std::uint8_t>)>;
  using ClosedHandler = std::function<void(std::string_view reason)>;

  virtual ~Port() = default;

  virtual PortState state() const = 0;
  /** Why the state is an error, in the platform's words; otherwise "". */
  virtual std::string error() const { return ""; }
  /** Sends the whole block in order, as a single write; false if the port is not open. */
  virtual bool Send(std::span<const std::uint8_t> bytes) = 0;
  virtual PortAnswer SetControlLines(bool /*dtr*/, bool /*rts*/) { return PortAnswer::kUnsupported; }
  /** Discards bytes received but not yet handled, and bytes not yet sent. */
  virtual void Discard() {}
  /** Closes the port; does nothing if it is already closed. */
  virtual void Close() = 0;

  /** Called with bytes as they arrive. */
  void set_on_bytes(BytesHandler handler) { on_bytes_ = std::move(handler); }
  /** Called once when the other end or the system closes the stream. */
  void set_on_closed(ClosedHandler handler) { on_closed_ = std::move(handler); }

 protected:
  void GiveBytes(std::span<const std::uint8_t> bytes) {
    if (on_bytes_) on_bytes_(bytes);
  }
  void GiveClosed(std::string_view reason) {
    if (on_closed_) on_closed_(reason);
  }

 private:
  BytesHandler on_bytes_;
  ClosedHandler on_closed_;
};

/** Creates ports: real ones in the programs, virtual ones in the tests. Never returns null. */
class PortMaker {
 public:
  virtual ~PortMaker() = default;

  /** Opens serial port 1 to 8. If that fails, returns a port in the state kError. */
  virtual std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) = 0;
  /**
   * Starts to connect over the network as the transport of the settings requires; poll the state for the
   * result. Only the system's own timeout applies.
   */
  virtual std::unique_ptr<Port> Connect(const ConnectionSettings& settings) = 0;
};

}  // namespace tarvok::link
