#pragma once

#include <span>
#include <string>

#include "io/posted_call.h"
#include "io/uses.h"
#include "link/frame.h"
#include "link/port.h"

namespace tarvok::io {

/**
 * What the ports on Qt's loop share: bytes and the end of the stream reach the handlers from the loop, never
 * from within one of Qt's own signals. So a handler may serve events and still gets what comes meanwhile (Qt
 * raises no "ready to read" inside another), and it may destroy the port.
 */
class QueuedPort : public Port {
 protected:
  /** Hands bytes over, behind those that wait. */
  void Arrived(std::span<const std::uint8_t> bytes);
  /** Tells the end of the stream, behind the last byte. Only the first call counts. */
  void Ended(std::string reason);
  /** Forgets the bytes that wait. */
  void ForgetArrived() { waiting_.clear(); }
  /** No handler is called from now on. */
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
