#include "sessions/modem_call.h"

#include <string>
#include <string_view>

#include "sessions/open_connection.h"

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
  transfer.line().Take(transfer.ports().OpenSerial(transfer.settings().ModemPort(), kModemLine));
  if (!transfer.line().line().IsOpen()) {
    transfer.Failed(kOpenDots);
    return transfer.Fail(kPortFailed, PortReason(transfer));
  }
  SetControlLines(transfer.line(), true);
  transfer.Finished(kOpenDots);
  return true;
}

/**
 * True if the modem responds. Each command starts with the CR that ends the previous one and has none at its
 * end.
 */
bool SetUpModem(Transfer& transfer) {
  ExchangeLine& line = transfer.line();
  line.modem() = {};
  transfer.LogLine("Dialing...");
  Write(line, "\rATH0");
  if (!transfer.waits().WaitSeconds(1)) return false;
  Write(line, "\rATZ");
  if (!transfer.waits().WaitSeconds(1)) return false;
  Write(line, "\rAT S7=45 S0=0 V1 X4");
  Write(line, "\rATH1");
  if (!transfer.waits().WaitSeconds(1)) return false;
  if (line.modem().result == ModemReply::kOk) return true;
  transfer.LogLine(kNoModem);
  return false;
}

bool FailWith(Transfer& transfer, std::string_view line, std::string_view box) {
  transfer.LogLine(line);
  return transfer.Fail(box);
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
      transfer.LogLine(ConnectWords(modem));
      return true;
    case ModemReply::kNone:
      return transfer.FailInLog(kNoModemInTime);
    case ModemReply::kBusy:
      return FailWith(transfer, "Error : Line Busy", "LINE BUSY");
    case ModemReply::kNoCarrier:
      return FailWith(transfer, "Error : No Carrier", "NO CARRIER");
    case ModemReply::kNoDialTone:
      return FailWith(transfer, "Error : No Dial Tone", "NO DIAL TONE");
    case ModemReply::kOk:
      return transfer.FailInLog("MODEM OK");
    default:
      return FailWith(transfer, kNoModem, kNoModem);
  }
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
  if (transfer.settings().tel.empty()) return transfer.FailInLog(kNoTelephone);
  if (!OpenModemPort(transfer)) return false;
  const Transfer::Calling calling(transfer);
  const bool ready = SetUpModem(transfer);
  if (!ready || !Dial(transfer)) {
    HangUpModem(transfer.line());
    transfer.line().line().Close();
    return ready || transfer.waits().aborted() ? false : transfer.Fail(kNoModem);
  }
  if (!transfer.waits().WaitSeconds(1)) return false;
  transfer.line().link().Init(1, 0);
  [[maybe_unused]] const bool answered = transfer.line().link().Establish();
  return transfer.waits().WaitSeconds(1);
}

}  // namespace tarvok::sessions
