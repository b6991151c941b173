#pragma once

#include <memory>
#include <string>
#include <utility>

#include "io/uses.h"
#include "link/port.h"
#include "store/connection_settings.h"
#include "store/settings_store.h"

namespace tarvok::io {

/** The settings group of the serial devices. */
inline constexpr std::string_view kSerialPortsGroup = "Serial Ports";

/** The device of serial port 1 to 8: the setting `Com1` to `Com8`, by default /dev/ttyS0 to /dev/ttyS7. */
std::string SerialDevice(SettingsStore& settings, int number);
/** The name of that setting. */
std::string SerialDeviceKey(int number);

/** Creates real ports: serial devices and TCP connections on Qt's loop. */
class QtPortMaker : public PortMaker {
 public:
  /** `device` is used for every serial port of this run; empty for the devices in the settings. */
  explicit QtPortMaker(SettingsStore& settings, std::string device = {})
      : settings_(settings), device_(std::move(device)) {}

  std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) override;
  std::unique_ptr<Port> Connect(const ConnectionSettings& settings) override;

 private:
  SettingsStore& settings_;
  std::string device_;
};

}  // namespace tarvok::io
