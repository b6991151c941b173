// Any text where a setting is read: connection keys of a project, a serial line's settings, a practice line's faults, a
// password, the lists and numbers in a value. Nothing is believed that is out of range.

#include <cstdint>
#include <string>

#include "exchange/fault_plan.h"
#include "fuzz/demand.h"
#include "link/line_settings.h"
#include "link/password_code.h"
#include "shell/connection_settings.h"
#include "store/digit_code.h"
#include "store/field_list.h"
#include "store/number_text.h"
#include "store/value_code.h"
#include "tests/store/memory_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  const std::string text(reinterpret_cast<const char*>(data), size);

  test::MemoryFiles files;
  files.Put("/p", text);
  ProjectStore store(files);
  ConnectionSettings settings;
  [[maybe_unused]] const Status read = ReadConnection(store, "/p", EmptySpeed::kWrittenBack, settings);
  Demand(settings.pbx_id >= 0 && settings.pbx_id <= 15 && settings.card_id >= 0 && settings.card_id <= 15);
  if (const auto line = ParseLineSettings(text))
    Demand(line->speed > 0 && line->data_bits >= 5 && line->data_bits <= 8);
  if (const auto plan = ParseFaultPlan(text); plan.ok()) {
    Demand(plan.value().drop >= 0 && plan.value().drop <= 1 && plan.value().delay_ms >= 0);
  }
  if (PackPassword(text)) Demand(!text.empty() && text.size() <= kMostPasswordDigits);

  const FieldList fields(text);
  for (int n = -1; n <= fields.count() + 1; ++n) {
    Demand(fields[n] == GetField(text, n));
    const std::string set = SetField(text, n, "x");
    Demand(set.size() <= text.size() + 1);
  }
  constexpr std::int64_t kMost = 1'000'000'000'000'000;
  for (const std::int64_t value : {Val(text), ValHex(text)}) Demand(value >= -kMost && value <= kMost);
  Demand(ValHundredths(text) == ValHundredths(text));
  [[maybe_unused]] const std::uint64_t bits = BinToDec(text);
  std::uint8_t packed[16] = {};
  if (PackDigits(text, DialSymbols::kDigitsStarHash, packed)) {
    Demand(UnpackDigits(packed, DialSymbols::kDigitsStarHash, SkippedBytes::kZeroAndUnset).size() <= 32);
  }
  return 0;
}
