#pragma once

#include <memory>
#include <string>

#include <QTcpSocket>

#include "io/queued_port.h"
#include "io/uses.h"

namespace tarvok::io {

/**
 * A TCP connection. Small blocks are sent immediately, each Send in one write. Bytes sent before a Close
 * still arrive.
 */
class QtTcpPort : public QueuedPort {
 public:
  /**
   * Starts to connect. An empty host, or a port that is not a number from 1 to 65535, is an error at once.
   */
  QtTcpPort(const std::string& host, const std::string& port);
  /** Takes over a connected socket. */
  explicit QtTcpPort(std::unique_ptr<QTcpSocket> socket);
  ~QtTcpPort() override { QtTcpPort::Close(); }

  bool Send(std::span<const std::uint8_t> bytes) override { return SendTo(*socket_, bytes); }
  /** Bytes already handed to the system cannot be taken back. */
  void Discard() override;
  void Close() override;

 private:
  void Listen();
  void OnConnected();
  void OnError();

  std::unique_ptr<QTcpSocket> socket_;
  QObject listener_;  // context of the socket's signals
};

}  // namespace tarvok::io
