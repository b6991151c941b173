#include "io/qt_serial_port.h"

#include <QFile>

namespace tarvok::io {
namespace {

QSerialPort::Parity QtParity(Parity parity) {
  switch (parity) {
    case Parity::kEven:
      return QSerialPort::EvenParity;
    case Parity::kOdd:
      return QSerialPort::OddParity;
    case Parity::kNone:
      break;
  }
  return QSerialPort::NoParity;
}

QSerialPort::StopBits QtStopBits(StopBits bits) {
  switch (bits) {
    case StopBits::kOneAndHalf:
      return QSerialPort::OneAndHalfStop;
    case StopBits::kTwo:
      return QSerialPort::TwoStop;
    case StopBits::kOne:
      break;
  }
  return QSerialPort::OneStop;
}

/** True for errors after which the device delivers nothing but the same error. */
bool EndsDevice(QSerialPort::SerialPortError error) {
  return error == QSerialPort::ReadError || error == QSerialPort::WriteError ||
         error == QSerialPort::ResourceError;
}

}  // namespace

QtSerialPort::QtSerialPort(const std::string& device, const LineSettings& settings) {
  port_.setPortName(QFile::decodeName(QByteArray::fromStdString(device)));
  const bool set = port_.setBaudRate(settings.speed) && port_.setParity(QtParity(settings.parity)) &&
                   port_.setDataBits(static_cast<QSerialPort::DataBits>(settings.data_bits)) &&
                   port_.setStopBits(QtStopBits(settings.stop_bits)) &&
                   port_.setFlowControl(QSerialPort::NoFlowControl);
  if (!set || !port_.open(QIODevice::ReadWrite)) {
    error_ = device + ": " + port_.errorString().toStdString();
    return;
  }
  state_ = PortState::kOpen;
  QObject::connect(&port_, &QSerialPort::readyRead, &listener_, [this] { Arrived(port_); });
  QObject::connect(&port_, &QSerialPort::errorOccurred, &listener_,
                   [this](QSerialPort::SerialPortError error) { OnError(error); });
}

void QtSerialPort::OnError(QSerialPort::SerialPortError error) {
  if (state_ != PortState::kOpen || !EndsDevice(error)) return;
  // While the device stays open, the signal would repeat forever; but the device cannot be closed inside its
  // own signal.
  QObject::disconnect(&port_, nullptr, &listener_, nullptr);
  state_ = PortState::kClosed;
  const std::string reason = port_.errorString().toStdString();
  Arrived(port_);
  Ended(reason);
  close_device_.Post();
}

PortAnswer QtSerialPort::SetControlLines(bool dtr, bool rts) {
  if (state_ != PortState::kOpen) return PortAnswer::kFailed;
  port_.clearError();
  const bool both = port_.setDataTerminalReady(dtr) && port_.setRequestToSend(rts);
  const bool gone = EndsDevice(port_.error());
  port_.clearError();
  if (both) return PortAnswer::kDone;
  // A pseudo terminal reports one of several error codes, which only mean that it has no such lines.
  return gone ? PortAnswer::kFailed : PortAnswer::kUnsupported;
}

void QtSerialPort::Discard() {
  ForgetArrived();
  if (state_ == PortState::kOpen) port_.clear(QSerialPort::AllDirections);
}

void QtSerialPort::Close() {
  Silence();
  if (state_ == PortState::kError) return;
  state_ = PortState::kClosed;
  QObject::disconnect(&port_, nullptr, &listener_, nullptr);
  if (!port_.isOpen()) return;
  port_.flush();
  port_.close();
}

}  // namespace tarvok::io
