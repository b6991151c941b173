#pragma once

#include <string>

#include <QSerialPort>

#include "io/queued_port.h"
#include "io/uses.h"
#include "link/line_settings.h"

namespace tarvok::io {

/**
 * A serial device, identified by its path. When the constructor returns, it is open or in error. It closes
 * itself at the first error of the device and reports it. Pseudo terminals work, but have no control lines.
 */
class QtSerialPort : public QueuedPort {
 public:
  QtSerialPort(const std::string& device, const LineSettings& settings);
  ~QtSerialPort() override { QtSerialPort::Close(); }

  bool Send(std::span<const std::uint8_t> bytes) override { return SendTo(port_, bytes); }
  PortAnswer SetControlLines(bool dtr, bool rts) override;
  void Discard() override;
  void Close() override;

 private:
  void OnError(QSerialPort::SerialPortError error);

  QSerialPort port_;
  QObject listener_;  // context of the device's signals
  PostedCall close_device_{[this] { port_.close(); }};
};

}  // namespace tarvok::io
