#include "io/queued_port.h"

#include <utility>

namespace tarvok::io {

void QueuedPort::Arrived(std::span<const std::uint8_t> bytes) {
  if (silent_ || bytes.empty()) return;
  waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
  deliver_.Post();
}

void QueuedPort::Arrived(QIODevice& device) {
  const QByteArray bytes = device.readAll();
  Arrived({reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
}

void QueuedPort::Ended(std::string reason) {
  if (silent_ || ended_) return;
  ended_ = true;
  end_reason_ = std::move(reason);
  deliver_.Post();
}

void QueuedPort::Silence() {
  silent_ = true;
  waiting_.clear();
}

void QueuedPort::Deliver() {
  if (silent_) return;
  if (waiting_.empty()) {
    if (!ended_) return;
    silent_ = true;
    GiveClosed(std::exchange(end_reason_, {}));
    return;
  }
  if (ended_) deliver_.Post();
  // Touch nothing after this call: the handler may have destroyed the port.
  const Bytes bytes = std::exchange(waiting_, {});
  GiveBytes(bytes);
}

}  // namespace tarvok::io
