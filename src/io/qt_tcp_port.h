#pragma once

#include <memory>
#include <string>

#include <QTcpSocket>

#include "io/queued_port.h"
#include "io/uses.h"

namespace tarvok::io {

/** A TCP connection. Small blocks leave at once, each Send in one write; what was sent before a Close still
 * arrives. */
class QtTcpPort : public QueuedPort {
 public:
  /** Begins to connect. A port that is no number from 1 to 65535, or an empty host, is an error at once. */
  QtTcpPort(const std::string& host, const std::string& port);
  /** Takes over a connected socket. */
  explicit QtTcpPort(std::unique_ptr<QTcpSocket> socket);
  ~QtTcpPort() override { QtTcpPort::Close(); }

  PortState state() const override { return state_; }
  std::string error() const override { return error_; }
  bool Send(std::span<const std::uint8_t> bytes) override;
  PortAnswer SetControlLines(bool, bool) override { return PortAnswer::kUnsupported; }
  /** Bytes that were handed to the system can't be taken back. */
  void Discard() override;
  void Close() override;

 private:
  void Listen();
  void OnConnected();
  void OnReadyRead();
  void OnError();

  std::unique_ptr<QTcpSocket> socket_;
  QObject listener_;  // context of the socket's signals
  PortState state_ = PortState::kConnecting;
  std::string error_;
};

}  // namespace tarvok::io
