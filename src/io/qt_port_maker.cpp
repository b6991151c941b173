#include "io/qt_port_maker.h"

#include <filesystem>
#include <system_error>

#include "io/qt_serial_port.h"
#include "io/qt_tcp_port.h"

namespace tarvok::io {
namespace {

/** A port that does not open, for a number without a device. */
class NoPort : public Port {
 public:
  explicit NoPort(std::string error) : error_(std::move(error)) {}

  PortState state() const override { return PortState::kError; }
  std::string error() const override { return error_; }
  bool Send(std::span<const std::uint8_t>) override { return false; }
  PortAnswer SetControlLines(bool, bool) override { return PortAnswer::kFailed; }
  void Close() override {}

 private:
  std::string error_;
};

/** Makes a device path absolute; Qt would look for a relative one in /dev. */
std::string Absolute(const std::string& device) {
  std::error_code error;
  if (!std::filesystem::exists(device, error)) return device;
  const std::filesystem::path path = std::filesystem::absolute(device, error);
  return error ? device : path.string();
}

}  // namespace

std::string SerialDeviceKey(int number) {
  return "Com" + std::to_string(number);
}

std::string SerialDevice(SettingsStore& settings, int number) {
  const std::string device = settings.Get(kSerialPortsGroup, SerialDeviceKey(number));
  return device.empty() ? "/dev/ttyS" + std::to_string(number - 1) : device;
}

std::unique_ptr<Port> QtPortMaker::OpenSerial(int number, const LineSettings& settings) {
  if (number < 1 || number > kSerialPorts) {
    return std::make_unique<NoPort>("there is no serial port " + std::to_string(number) + ", only 1 to " +
                                    std::to_string(kSerialPorts));
  }
  return std::make_unique<QtSerialPort>(Absolute(device_.empty() ? SerialDevice(settings_, number) : device_),
                                        settings);
}

std::unique_ptr<Port> QtPortMaker::Connect(const ConnectionSettings& settings) {
  return std::make_unique<QtTcpPort>(settings.ip_host, settings.ip_port);
}

}  // namespace tarvok::io
