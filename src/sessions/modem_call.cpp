#include "sessions/modem_call.h"

#include <string>
#include <string_view>

#include "sessions/open_connection.h"
#include "sessions/session_words.h"

namespace tarvok::sessions {
namespace {

constexpr LineSettings kModemLine = {.speed = 57600};
constexpr std::int64_t kDialWait_ms = 91'000;
constexpr std::string_view kOpenDots = ".......................";

void Write(ExchangeLine& line, std::string_view command) {
  const std::string bytes(command);
  // A modem that accepts nothing does not reply; the caller checks for the reply.
  [[maybe_unused]] const bool taken =
      line.line().Write({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

void SetControlLines(ExchangeLine& line, bool on) {
  if (!line.line().IsOpen()) return;
  // A port without control lines (a pseudo terminal) works, too.
  [[maybe_unused]] const PortAnswer answer = line.line().port()->SetControlLines(on, on);
}

bool OpenModemPort(Transfer& transfer) {
  transfer.line().line().Close();
  transfer.line().Take(transfer.parts().ports.OpenSerial(transfer.settings().ModemPort(), kModemLine));
  if (!transfer.line().line().IsOpen()) {
    transfer.report().Failed(kOpenDots);
    return transfer.report().Fail(kPortFailed, PortReason(transfer));
  }
  SetControlLines(transfer.line(), true);
  transfer.report().Finished(kOpenDots);
  return true;
}

/**
 * True if the modem responds. Each command starts with the CR that ends the previous one and has none at its
 * end.
 */
bool SetUpModem(Transfer& transfer) {
  ExchangeLine& line = transfer.line();
  line.modem() = {};
  transfer.report().LogLine("Dialing...");
  Write(line, "\rATH0");
  if (!transfer.waits().WaitSeconds(1)) return false;
  Write(line, "\rATZ");
  if (!transfer.waits().WaitSeconds(1)) return false;
  Write(line, "\rAT S7=45 S0=0 V1 X4");
  Write(line, "\rATH1");
  if (!transfer.waits().WaitSeconds(1)) return false;
  if (line.modem().result == ModemReply::kOk) return true;
  transfer.report().LogLine(kNoModem);
  return false;
}

/** The modem's own line, without its leading line feed. */
std::string_view ConnectWords(const ModemReply& modem) {
  const std::string_view text = modem.connect_text;
  const std::size_t start = text.find_first_not_of('\n');
  return start == std::string_view::npos ? std::string_view("MODEM CONNECTED") : text.substr(start);
}

bool Dial(Transfer& transfer) {
  ModemReply& modem = transfer.line().modem();
  modem = {};  // the OK of the set-up must not be taken for a reply to the call
  Write(transfer.line(), "ATDT" + transfer.settings().tel + "\r");
  transfer.waits().Until([&] { return modem.result != ModemReply::kNone; }, kDialWait_ms);
  if (transfer.waits().aborted()) return false;
  switch (modem.result) {
    case ModemReply::kConnect:
      transfer.report().LogLine(ConnectWords(modem));
      return true;
    case ModemReply::kNone:
      return transfer.report().FailInLog(kNoModemInTime);
    case ModemReply::kBusy:
      return transfer.report().FailWithLine("Error : Line Busy", "LINE BUSY");
    case ModemReply::kNoCarrier:
      return transfer.report().FailWithLine("Error : No Carrier", "NO CARRIER");
    case ModemReply::kNoDialTone:
      return transfer.report().FailWithLine("Error : No Dial Tone", "NO DIAL TONE");
    case ModemReply::kOk:
      return transfer.report().FailInLog("MODEM OK");
    default:
      return transfer.report().FailWithLine(kNoModem, kNoModem);
  }
}

/** Dials over the open port and sets up the link. */
bool Call(Transfer& transfer) {
  const bool ready = SetUpModem(transfer);
  if (!ready || !Dial(transfer)) {
    HangUpModem(transfer.line());
    transfer.line().line().Close();
    return ready || transfer.waits().aborted() ? false : transfer.report().Fail(kNoModem);
  }
  if (!transfer.waits().WaitSeconds(1)) return false;
  transfer.line().link().Init(1, 0);
  [[maybe_unused]] const bool answered = transfer.line().link().Establish();
  return transfer.waits().WaitSeconds(1);
}

}  // namespace

void HangUpModem(ExchangeLine& line) {
  SetControlLines(line, false);
  Write(line, "ATH0");
}

void EndModemCall(ExchangeLine& line) {
  Write(line, "ATH0");
  SetControlLines(line, false);
}

bool CallByModem(Transfer& transfer) {
  if (transfer.settings().tel.empty()) return transfer.report().FailInLog(kNoTelephone);
  if (!OpenModemPort(transfer)) return false;
  transfer.calling = true;
  const bool called = Call(transfer);
  transfer.calling = false;
  return called;
}

}  // namespace tarvok::sessions
