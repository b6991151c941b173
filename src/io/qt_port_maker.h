#pragma once

#include <memory>
#include <string>
#include <utility>

#include "io/uses.h"
#include "link/port.h"
#include "store/settings_store.h"

namespace tarvok::io {

/** Per-user settings of the serial devices. */
inline constexpr std::string_view kSerialPortsGroup = "Serial Ports";
/** Serial ports are named by an index from 1. */
inline constexpr int kSerialPorts = 8;

/** The device behind serial port 1 to 8: the per-user setting `Com1` to `Com8`, else /dev/ttyS0 to
 * /dev/ttyS7. */
std::string SerialDevice(SettingsStore& settings, int number);
/** Name of that setting. */
std::string SerialDeviceKey(int number);

/** Real ports: serial devices and TCP connections on Qt's loop. */
class QtPortMaker : public PortMaker {
 public:
  /** `device` stands for every serial port during this run; empty for the devices of the settings. */
  explicit QtPortMaker(SettingsStore& settings, std::string device = {})
      : settings_(settings), device_(std::move(device)) {}

  std::unique_ptr<Port> OpenSerial(int number, const LineSettings& settings) override;
  std::unique_ptr<Port> ConnectTcp(const std::string& host, const std::string& port) override;

 private:
  SettingsStore& settings_;
  std::string device_;
};

}  // namespace tarvok::io
