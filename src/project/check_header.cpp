#include "project/check_header.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "project/field_check.h"
#include "store/connection_settings.h"
#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::project {
namespace {

namespace key = connection_key;

constexpr std::string_view kSetting = "setting";

/** A key of the header and its valid values. A blank is always valid; without `judged` any text is. The host
 * and the phone number are up to the system and the modem, and the speed can be any text. */
struct HeaderKey {
  std::string_view name;
  bool judged = false;
  Field field = {};
};

constexpr HeaderKey Ranged(std::string_view name, int low, int high) {
  return {name, true, Number(kSetting, low, high)};
}

constexpr HeaderKey kKeys[] = {
    {kHeaderTag},
    Ranged(kEstablishKey, 0, 1),
    Ranged(key::kBy, 0, 4),
    Ranged(key::kPort, 1, 8),
    Ranged(key::kPortModem, 1, 8),
    {key::kTel},
    {key::kBps},
    {key::kIpHost},
    Ranged(key::kIpPort, 1, 65535),
    Ranged(key::kDcpu, 0, 1),
    Ranged(key::kPbxId, 0, 15),
    Ranged(key::kCardId, 0, 15),
    Ranged(key::kCut, 0, 255),
    Ranged(key::kCompare, 0, 1),
    {kLastBilling},
};

}  // namespace

void CheckHeader(const IniText& project, std::vector<Finding>& findings) {
  for (const IniText::Key& entry : project.Keys(kHeaderSection)) {
    const auto* known = std::find_if(std::begin(kKeys), std::end(kKeys),
                                     [&](const HeaderKey& k) { return SameName(k.name, entry.name); });
    std::string wrong;
    if (known == std::end(kKeys)) {
      wrong = "is an unknown key";
    } else if (const std::string_view value = Trim(entry.value); known->judged && !value.empty()) {
      wrong = WrongValue(known->field, value);
    }
    if (wrong.empty()) continue;
    findings.push_back(
        {std::string(kHeaderSection), std::string(entry.name), std::string(kSetting), std::move(wrong)});
  }
}

}  // namespace tarvok::project
