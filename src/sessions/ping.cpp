#include "sessions/ping.h"

#include <string>

#include "sessions/open_connection.h"
#include "sessions/session_words.h"
#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::sessions {
namespace {

/** False if the settings dialog never wrote the ids. */
bool IdsAreSet(Transfer& transfer) {
  constexpr int kNeverSet = 500;
  const auto is_set = [](std::string_view id) { return Val(id) != kNeverSet; };
  const ConnectionSettings& settings = transfer.settings();
  return settings.Dcpu() != 1 || (is_set(settings.pbx_id) && is_set(settings.card_id));
}

bool OpenLine(Transfer& transfer) {
  if (transfer.transport().port == PortKind::kSerial) {
    if (!OpenSerialPort(transfer)) return transfer.report().Fail("Open COM Port Error", PortReason(transfer));
  } else if (!OpenSocket(transfer)) {
    return false;
  }
  transfer.line().link().Init(1, 0);
  if (transfer.transport().wire != Wire::kLink || transfer.line().link().Establish()) return true;
  return transfer.report().FailInLog(kNotEstablished);
}

bool Ping(Transfer& transfer) {
  if (!OpenLine(transfer)) return false;
  const std::int64_t start_ms = transfer.parts().events.Tick_ms();
  if (!transfer.messages().SendIdle()) return transfer.report().FailInLog("PING TIMEOUT");
  const std::int64_t took_ms = transfer.parts().events.Tick_ms() - start_ms;
  transfer.report().LogLine("Ping reply " + FormatThousandths(took_ms) + " Sec");
  return true;
}

}  // namespace

bool PingExchange(Transfer& transfer) {
  if (!IdsAreSet(transfer)) return transfer.report().Fail("PBX ID or Card ID didn't set");
  transfer.Begin();
  transfer.report().LogLine("PING?");
  bool answered = false;
  if (transfer.transport().port == PortKind::kModem) {
    answered = transfer.report().Fail("This version doesn't support ping by modem");
  } else {
    answered = Ping(transfer);
    const Port* port = transfer.line().line().port();
    if (!answered && port != nullptr && !port->error().empty())
      transfer.report().LogLine("Err : " + port->error());
  }
  transfer.CleanUp();
  return answered;
}

}  // namespace tarvok::sessions
