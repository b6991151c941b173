#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QTcpServer>

#include "io/uses.h"
#include "link/port.h"
#include "store/status.h"

namespace tarvok::io {

/** Listens on an address and delivers every connection as an open port. */
class TcpListener {
 public:
  using ConnectionHandler = std::function<void(std::unique_ptr<Port>)>;

  explicit TcpListener(ConnectionHandler on_connection);

  /** `address` is numeric; port 0 picks a free one. */
  Status Listen(const std::string& address, int port);
  /** The port in use. */
  int port() const { return server_.serverPort(); }

 private:
  ConnectionHandler on_connection_;
  QTcpServer server_;
};

}  // namespace tarvok::io
