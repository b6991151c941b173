#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "link/line_settings.h"
#include "link/uses.h"

namespace tarvok::link {

enum class PortState { kConnecting, kOpen, kError, kClosed };

/** What a port answers to something that not every line can do. */
enum class PortAnswer { kDone, kFailed, kUnsupported };

/**
 * A byte stream to somebody: a serial line, a TCP socket, or a port on a port that damages, paces or traces.
 *
 * Handlers run on the event thread, never from within Send, and not after Close. What a port can't do it
 * says.
 */
class Port {
 public:
  using BytesHandler = std::function<void(std::span<const std::uint8_t>)>;
  using ClosedHandler = std::function<void(std::string_view reason)>;

  virtual ~Port() = default;

  virtual PortState state() const = 0;
  /** Why the state is an error, in the platform's words; else "". */
  virtual std::string error() const = 0;
  /** Takes the whole block, in order; false if the port is not open. One call is one write. */
  virtual bool Send(std::span<const std::uint8_t> bytes) = 0;
  virtual PortAnswer SetControlLines(bool dtr, bool rts) = 0;
  /** Forgets bytes that came and were not handled, and bytes not yet sent. */
  virtual void Discard() = 0;
  /** Closes; a second call does nothing. */
  virtual void Close() = 0;

  /** Called with bytes as they come. */
  void set_on_bytes(BytesHandler handler) { on_bytes_ = std::move(handler); }
  /** Called once when the other end or the system ends the stream. */
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

/** Where ports come from; a program lends the real ones, the tests virtual ones. Never returns null. */
class PortMaker {
 public:
  virtual ~PortMaker() = default;

  /** Opens serial port 1 to 8. A port that does not open is returned in the state kError. */
  virtual std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) = 0;
  /** Begins to connect; the state tells when it is done. The system's own time limit applies. */
  virtual std::unique_ptr<Port> ConnectTcp(const std::string& host, const std::string& port) = 0;
};

}  // namespace tarvok::link
