#include "sessions/open_connection.h"

#include "sessions/modem_call.h"

namespace tarvok::sessions {
namespace {

constexpr std::string_view kPortOkDots = ".................................";
constexpr std::string_view kPortFailedDots = ".............................................";
constexpr std::string_view kCheckDots = ".................";

bool OpenSerial(Transfer& transfer) {
  if (!OpenSerialPort(transfer)) {
    transfer.Failed(kPortFailedDots);
    return transfer.Fail(kPortFailed, PortReason(transfer));
  }
  transfer.Finished(kPortOkDots);
  return true;
}

bool EstablishLink(Transfer& transfer) {
  if (transfer.line().link().Establish()) return true;
  transfer.LogLine(kNotEstablished);
  return transfer.Fail(kCheckConnection);
}

bool CheckConnection(Transfer& transfer) {
  transfer.Start("Check your connection...");
  // Mark the modem's result as used; a later text line will show as a change.
  transfer.line().modem().result = 10;
  if (transfer.messages().SendIdle()) {
    transfer.Finished(kCheckDots);
    return true;
  }
  transfer.Failed(kCheckDots);
  return transfer.Fail(kCheckConnection);
}

bool OpenByModem(Transfer& transfer) {
  if (!CallByModem(transfer)) return false;
  if (transfer.messages().SendIdle()) return true;
  const bool failed = transfer.Fail(kCheckConnection);
  HangUpModem(transfer.line());
  return failed;
}

}  // namespace

std::optional<LineSettings> SerialLine(const ConnectionSettings& settings) {
  // The project holds a bare speed. A full settings text there yields one that no port opens with.
  return ParseLineSettings(settings.bps + ",n,8,1");
}

std::string PortReason(Transfer& transfer) {
  const Port* port = transfer.line().line().port();
  // With invalid settings no port was opened.
  if (port == nullptr) return ": " + transfer.settings().bps + " is not a line speed";
  return port->error().empty() ? std::string() : ": " + port->error();
}

bool OpenSerialPort(Transfer& transfer) {
  // A failed section leaves its port open, and a device can be opened only once.
  transfer.line().line().Close();
  const std::optional<LineSettings> settings = SerialLine(transfer.settings());
  if (settings)
    transfer.line().Take(transfer.ports().OpenSerial(transfer.settings().SerialPort(), *settings));
  return transfer.line().line().IsOpen();
}

bool OpenSocket(Transfer& transfer) {
  const ConnectionSettings& settings = transfer.settings();
  if (settings.ip_host.empty() || settings.ip_port.empty()) return transfer.FailInLog(kNoAddress);
  transfer.line().Take(transfer.ports().Connect(settings));
  const Port* port = transfer.line().line().port();
  transfer.waits().Until([&] { return port->state() != PortState::kConnecting; }, EventServer::kForever);
  if (port->state() != PortState::kOpen) {
    return transfer.FailInLog("Cannot connect to " + settings.ip_host, PortReason(transfer));
  }
  transfer.LogLine("Connected [" + settings.ip_host + "]");
  return true;
}

bool OpenConnection(Transfer& transfer) {
  const LinkMode mode = transfer.mode();
  const PortKind port = TransportOf(mode).port;
  if (port != PortKind::kSocket) transfer.Start("Initial COM Port...");
  if (port == PortKind::kModem) return OpenByModem(transfer);
  const bool open = port == PortKind::kSerial ? OpenSerial(transfer) : OpenSocket(transfer);
  if (!open) return false;
  transfer.line().link().Init(1, 0);
  return !UsesFrames(mode) || (EstablishLink(transfer) && CheckConnection(transfer));
}

}  // namespace tarvok::sessions
