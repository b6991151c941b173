#include "project/check_header.h"

#include <string>
#include <string_view>

#include "project/field_check.h"
#include "store/connection_settings.h"
#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::project {
namespace {

constexpr std::string_view kSetting = "setting";

/** Why the value is invalid; "" if it is valid. A blank always is. The host and the phone number are up to the
 * system and the modem, and the speed can be any text. */
std::string WrongSetting(std::string_view name, std::string_view value) {
  const auto wrong = [&](int low, int high) {
    return value.empty() || high < low ? "" : WrongValue(Number(kSetting, low, high), value);
  };
  for (const ConnectionKey& key : kConnectionKeys) {
    if (SameName(key.name, name)) return wrong(key.lowest, key.highest);
  }
  if (SameName(name, kEstablishKey)) return wrong(0, 1);
  return SameName(name, kHeaderTag) || SameName(name, kLastBilling) ? "" : "is an unknown key";
}

}  // namespace

void CheckHeader(const IniText& project, std::vector<Finding>& findings) {
  for (const IniText::Key& entry : project.Keys(kHeaderSection)) {
    std::string wrong = WrongSetting(entry.name, Trim(entry.value));
    if (wrong.empty()) continue;
    findings.push_back(
        {std::string(kHeaderSection), std::string(entry.name), std::string(kSetting), std::move(wrong)});
  }
}

}  // namespace tarvok::project
