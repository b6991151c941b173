#pragma once

#include <span>
#include <string>

#include "io/posted_call.h"
#include "io/uses.h"
#include "link/frame.h"
#include "link/port.h"

namespace tarvok::io {

/**
 * Base class of the ports on Qt's loop. Bytes and the end of the stream are delivered from the loop, never
 * from within one of Qt's signals. So a handler may serve events and still receives what arrives meanwhile
 * (Qt does not raise "ready to read" recursively), and it may destroy the port.
 */
class QueuedPort : public Port {
 protected:
  /** Queues received bytes for the handler. */
  void Arrived(std::span<const std::uint8_t> bytes);
  /** Reports the end of the stream after the last byte. Only the first call counts. */
  void Ended(std::string reason);
  /** Discards the queued bytes. */
  void ForgetArrived() { waiting_.clear(); }
  /** No handler is called after this. */
  void Silence();

 private:
  void Deliver();

  PostedCall deliver_{[this] { Deliver(); }};
  Bytes waiting_;
  std::string end_reason_;
  bool ended_ = false;
  bool silent_ = false;
};

}  // namespace tarvok::io
