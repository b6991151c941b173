#include "io/tcp_listener.h"

#include <utility>

#include <QHostAddress>
#include <QNetworkProxy>

#include "io/qt_tcp_port.h"

namespace tarvok::io {

TcpListener::TcpListener(ConnectionHandler on_connection) : on_connection_(std::move(on_connection)) {
  server_.setProxy(QNetworkProxy::NoProxy);
  QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
      socket->setParent(nullptr);
      on_connection_(std::make_unique<QtTcpPort>(std::unique_ptr<QTcpSocket>(socket)));
    }
  });
}

Status TcpListener::Listen(const std::string& address, int port) {
  const std::string where = address + ":" + std::to_string(port);
  QHostAddress host;
  if (!host.setAddress(QString::fromStdString(address))) {
    return {ErrorKind::kBadData, "\"" + address + "\" is not a numeric address"};
  }
  if (!server_.listen(host, static_cast<quint16>(port))) {
    return {ErrorKind::kInputOutput, where + ": " + server_.errorString().toStdString()};
  }
  return {};
}

}  // namespace tarvok::io
