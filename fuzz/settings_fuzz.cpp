// Any text in place of a setting: a project's connection keys, a serial line's settings, a practice line's
// faults, a password, the practice exchange's own files. Values out of range are never accepted.

#include <cstdint>
#include <string>

#include "exchange/fault_plan.h"
#include "exchange/level_passwords.h"
#include "fuzz/demand.h"
#include "link/line_settings.h"
#include "link/password_code.h"
#include "store/connection_settings.h"
#include "tests/floors.h"
#include "tests/store/memory_files.h"

namespace {

using namespace tarvok;
using namespace tarvok::fuzz;

void JudgeConnection(const std::string& text) {
  constexpr int kMost = 1'000'000;
  MemoryFiles files;
  files.Put("/p", text);
  ProjectStore store(files);
  ConnectionSettings settings;
  Demand(ReadConnection(store, "/p", ConnectionForm::kTransfer, settings).ok());
  Demand(settings.PbxId() >= 0 && settings.PbxId() <= 15 && settings.CardId() >= 0 &&
         settings.CardId() <= 15);
  Demand(settings.ChunkSize() >= 0 && settings.ChunkSize() <= 255 && !settings.bps.empty());
  for (const int number : {settings.SerialPort(), settings.ModemPort(), settings.Dcpu()})
    Demand(number >= -kMost && number <= kMost);
  Demand(SummaryLines(settings).size() >= 2);
  // What was written back is what is read from then on.
  const std::string written = files.Bytes("/p");
  Demand(ReadConnection(store, "/p", ConnectionForm::kTransfer, settings).ok());
  Demand(files.Bytes("/p") == written);
}

void JudgeTexts(const std::string& text) {
  if (const auto line = ParseLineSettings(text))
    Demand(line->speed > 0 && line->data_bits >= 5 && line->data_bits <= 8);
  if (const auto plan = ParseFaultPlan(text); plan.ok()) {
    for (const double chance :
         {plan.value().drop, plan.value().flip, plan.value().dup, plan.value().error_reply})
      Demand(chance >= 0 && chance <= 1);
    Demand(plan.value().delay_ms >= 0);
  }
  if (PackPassword(text)) Demand(!text.empty() && text.size() <= kMostPasswordDigits);
  if (LevelPasswords passwords; passwords.Read(text)) {
    LevelPasswords again;
    Demand(again.Read(passwords.Text()) && again.Text() == passwords.Text());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  JudgeConnection(text);
  JudgeTexts(text);
  return 0;
}
