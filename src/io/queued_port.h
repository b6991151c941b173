#pragma once

#include <functional>
#include <span>
#include <string>
#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QIODevice>
#include <QObject>

#include "io/uses.h"
#include "link/frame.h"
#include "link/port.h"

namespace tarvok::io {

/**
 * A call that the event loop makes once, however often it was posted. The destructor cancels a pending call;
 * the call itself may destroy the object.
 */
class PostedCall : public QObject {
 public:
  explicit PostedCall(std::function<void()> call) : call_(std::move(call)) {}

  void Post() {
    if (std::exchange(posted_, true)) return;
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }

 protected:
  void customEvent(QEvent*) override {
    posted_ = false;
    const std::function<void()> call = call_;
    call();
  }

 private:
  std::function<void()> call_;
  bool posted_ = false;
};

/**
 * Base class of the ports on Qt's loop. Bytes and the end of the stream are delivered from the loop, never
 * from within one of Qt's signals. So a handler may serve events and still receives what arrives meanwhile
 * (Qt does not raise "ready to read" recursively), and it may destroy the port.
 */
class QueuedPort : public Port {
 public:
  PortState state() const override { return state_; }
  std::string error() const override { return error_; }

 protected:
  /** Queues everything that a device has received. */
  void Arrived(QIODevice& device);
  /** Queues received bytes for the handler. */
  void Arrived(std::span<const std::uint8_t> bytes);
  /** Reports the end of the stream after the last byte. Only the first call counts. */
  void Ended(std::string reason);
  /** Discards the queued bytes. */
  void ForgetArrived() { waiting_.clear(); }
  /** No handler is called after this. */
  void Silence();
  /** Sends to a device while the port is open. */
  template <typename Device>
  bool SendTo(Device& device, std::span<const std::uint8_t> bytes) {
    if (state_ != PortState::kOpen) return false;
    const auto size = static_cast<qint64>(bytes.size());
    if (device.write(reinterpret_cast<const char*>(bytes.data()), size) != size) return false;
    device.flush();
    return state_ == PortState::kOpen;
  }

  PortState state_ = PortState::kError;
  std::string error_;

 private:
  void Deliver();

  PostedCall deliver_{[this] { Deliver(); }};
  Bytes waiting_;
  std::string end_reason_;
  bool ended_ = false;
  bool silent_ = false;
};

}  // namespace tarvok::io
