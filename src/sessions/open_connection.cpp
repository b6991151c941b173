#include "sessions/open_connection.h"

#include "sessions/modem_call.h"
#include "sessions/session_words.h"

namespace tarvok::sessions {
namespace {

constexpr std::string_view kPortOkDots = ".................................";
constexpr std::string_view kPortFailedDots = ".............................................";
constexpr std::string_view kCheckDots = ".................";

bool OpenSerial(Transfer& transfer) {
  if (!OpenSerialPort(transfer)) {
    transfer.report().Failed(kPortFailedDots);
    return transfer.report().Fail(kPortFailed, PortReason(transfer));
  }
  transfer.report().Finished(kPortOkDots);
  return true;
}

bool EstablishLink(Transfer& transfer) {
  return transfer.line().link().Establish() ||
         transfer.report().FailWithLine(kNotEstablished, kCheckConnection);
}

bool CheckConnection(Transfer& transfer) {
  transfer.report().Start("Check your connection...");
  // Mark the modem's result as used; a later text line will show as a change.
  transfer.line().modem().result = 10;
  return transfer.report().End(transfer.messages().SendIdle(), kCheckConnection, kCheckDots, kCheckDots);
}

bool OpenByModem(Transfer& transfer) {
  if (!CallByModem(transfer)) return false;
  if (transfer.messages().SendIdle()) return true;
  const bool failed = transfer.report().Fail(kCheckConnection);
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
    transfer.line().Take(transfer.parts().ports.OpenSerial(transfer.settings().SerialPort(), *settings));
  return transfer.line().line().IsOpen();
}

bool OpenSocket(Transfer& transfer) {
  const ConnectionSettings& settings = transfer.settings();
  if (settings.ip_host.empty() || settings.ip_port.empty()) return transfer.report().FailInLog(kNoAddress);
  transfer.line().Take(transfer.parts().ports.Connect(settings));
  const Port* port = transfer.line().line().port();
  transfer.waits().Until([&] { return port->state() != PortState::kConnecting; }, EventServer::kForever);
  if (port->state() != PortState::kOpen) {
    return transfer.report().FailInLog("Cannot connect to " + settings.ip_host, PortReason(transfer));
  }
  transfer.report().LogLine("Connected [" + settings.ip_host + "]");
  return true;
}

bool OpenConnection(Transfer& transfer) {
  const PortKind port = transfer.transport().port;
  if (port != PortKind::kSocket) transfer.report().Start("Initial COM Port...");
  if (port == PortKind::kModem) return OpenByModem(transfer);
  const bool open = port == PortKind::kSerial ? OpenSerial(transfer) : OpenSocket(transfer);
  if (!open) return false;
  transfer.line().link().Init(1, 0);
  return transfer.transport().wire != Wire::kLink || (EstablishLink(transfer) && CheckConnection(transfer));
}

}  // namespace tarvok::sessions
