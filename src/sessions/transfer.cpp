#include "sessions/transfer.h"

#include "sessions/modem_call.h"
#include "sessions/open_connection.h"
#include "sessions/session_words.h"
#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::sessions {
namespace {

ConnectionSettings SettingsOf(const TransferParts& parts, TransferForm form) {
  ConnectionSettings settings;
  const Status written_back = ReadConnection(
      parts.store, parts.project_file,
      form == TransferForm::kBilling ? ConnectionForm::kBilling : ConnectionForm::kTransfer, settings);
  if (!written_back.ok()) parts.log.Line(written_back.message());
  return settings;
}

/** The speed of a serial line; 0 for the other transports, whose speed is unknown. */
int SpeedOf(const ConnectionSettings& settings) {
  const std::optional<LineSettings> line = SerialLine(settings);
  return settings.transport().port == PortKind::kSerial && line ? line->speed : 0;
}

}  // namespace

Transfer::Transfer(const TransferParts& parts, TransferForm form)
    : parts_(parts),
      form_(form),
      waits_(parts.events),
      settings_(SettingsOf(parts, form)),
      line_({.mode = settings_.Mode(),
             .address = {settings_.PbxId(), settings_.CardId(), settings_.IsDirect()},
             .serial_chunk_size = settings_.ChunkSize()},
            waits_, parts.log,
            [this] {
              return Trim(parts_.store.GetIniValue(parts_.system_file, kHeaderSection, kEstablishKey)) == "1";
            }),
      report_(parts.view, parts.log, waits_),
      pace_(waits_, parts.view, line_.statistics(), SpeedOf(settings_)) {
  line_.set_on_ended([this](std::string_view reason) { OnEnded(reason); });
}

void Transfer::Begin(std::string_view what) {
  report_.Clear();
  parts_.view.SetBusy(true);
  line_.StartPump();
  pace_.Start();
  if (!what.empty()) report_.Log(Heading(what, transport()));
}

void Transfer::OnEnded(std::string_view reason) {
  if (!pace_.is_running() || waits_.aborted()) return;  // no session is waiting
  const bool ends = transport().port == PortKind::kSocket || !waits_.without_end();
  parts_.view.Advise("The connection was closed (" + std::string(reason) + "). " +
                     (ends ? "The session ends by itself." : "Give up and start again."));
}

void Transfer::StopClock() {
  pace_.Stop();
  parts_.view.SetBusy(false);
}

void Transfer::CleanUp() {
  if (waits_.aborted()) {
    CleanUpKeepingPort();  // the closing form still sends its last message over the port
    return;
  }
  line_.Close();
  StopClock();
}

void Transfer::CleanUpKeepingPort() {
  line_.StopPump();
  StopClock();
}

void Transfer::Unload() {
  const bool serial = transport().port != PortKind::kSocket && line_.line().IsOpen();
  if (serial && line_.link().is_up()) {
    waits_.ClearAbort();
    line_.StartPump();
    if (messages().SendIdle()) {
      // The form closes whether or not the exchange accepts the mode.
      [[maybe_unused]] const bool normal = messages().SendSetMode(ExchangeMode::kNormal);
    }
  }
  if (serial && transport().port == PortKind::kModem) EndModemCall(line_);
  line_.Close();
}

}  // namespace tarvok::sessions
