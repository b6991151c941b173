#include "store/connection_settings.h"

#include <algorithm>

#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::store {
namespace {

namespace key = connection_key;

constexpr std::string_view kDefaultBpsShownOnly = "9600,n,81";
constexpr int kNoId = 15;

/** Converts to int. Values far out of range are clamped but stay out of range. */
int SmallNumber(std::string_view text) {
  constexpr std::int64_t kLimit = 1'000'000;
  return static_cast<int>(std::clamp(Val(text), -kLimit, kLimit));
}

int PortNumber(std::string_view text) {
  return text.empty() ? 1 : SmallNumber(text);
}

/** An id fills one nibble of the message header; anything that does not fit becomes 15. */
int Id(std::string_view text) {
  if (text.empty()) return kNoId;
  const std::int64_t value = Val(text);
  return value < 0 || value > kNoId ? kNoId : static_cast<int>(value);
}

bool HasNegativeCard(const IniText& project, const ConnectionSettings& settings) {
  return settings.dcpu != 0 && Val(project.Get(kHeaderSection, key::kCardId)) < 0;
}

std::string_view WayOf(int by) {
  switch (by) {
    case 1:
      return "Serial ";
    case 2:
      return "Modem ";
    case 3:
      return "LAN to Serial ";
    case 4:
      return "LAN ";
    default:
      return "Server ";
  }
}

}  // namespace

ConnectionSettings ReadConnection(const IniText& project, EmptySpeed empty_speed) {
  const auto get = [&](std::string_view name) {
    return std::string(Trim(project.Get(kHeaderSection, name)));
  };
  ConnectionSettings settings;
  settings.by = SmallNumber(get(key::kBy));
  settings.port = PortNumber(get(key::kPort));
  settings.port_modem = PortNumber(get(key::kPortModem));
  settings.tel = get(key::kTel);
  settings.bps = get(key::kBps);
  if (settings.bps.empty()) {
    settings.bps = empty_speed == EmptySpeed::kWrittenBack ? kDefaultBps : kDefaultBpsShownOnly;
  }
  settings.ip_host = get(key::kIpHost);
  settings.ip_port = get(key::kIpPort);
  settings.dcpu = SmallNumber(get(key::kDcpu));
  const std::int64_t cut = Val(get(key::kCut));
  settings.cut = cut < 0 || cut > 255 ? 0 : static_cast<int>(cut);
  settings.compare = get(key::kCompare) == "1";
  settings.pbx_id = settings.dcpu == 0 ? kNoId : Id(get(key::kPbxId));
  settings.card_id = settings.dcpu == 0                   ? kNoId
                     : HasNegativeCard(project, settings) ? 0
                                                          : Id(get(key::kCardId));
  return settings;
}

Status ReadConnection(ProjectStore& store, const std::string& project, EmptySpeed empty_speed,
                      ConnectionSettings& settings) {
  const std::shared_ptr<const IniText> text = store.Snapshot(project);
  settings = ReadConnection(*text, empty_speed);
  if (text->bytes().empty()) return {};  // unreadable: leave it alone
  const bool no_speed =
      empty_speed == EmptySpeed::kWrittenBack && Trim(text->Get(kHeaderSection, key::kBps)).empty();
  const bool negative_card = HasNegativeCard(*text, settings);
  if (!no_speed && !negative_card) return {};
  return store.Update(project, [&](IniEdit& edit) {
    if (no_speed) edit.Set(kHeaderSection, key::kBps, kDefaultBps);
    if (negative_card) edit.Set(kHeaderSection, key::kCardId, "0");
  });
}

void WriteConnection(IniEdit& project, const ConnectionSettings& settings) {
  const auto set = [&](std::string_view name, const std::string& value) {
    project.Set(kHeaderSection, name, value);
  };
  set(key::kPort, std::to_string(settings.port));
  set(key::kPortModem, std::to_string(settings.port_modem));
  set(key::kTel, settings.tel);
  set(key::kBy, std::to_string(settings.by));
  set(key::kIpHost, settings.ip_host);
  set(key::kIpPort, settings.ip_port);
  set(key::kDcpu, std::to_string(settings.dcpu));
  set(key::kPbxId, std::to_string(settings.pbx_id));
  set(key::kCardId, std::to_string(settings.card_id));
  set(kHeaderTag, std::string(kLoadedTag));
  set(key::kBps, settings.bps);
}

std::vector<std::string> SummaryLines(const ConnectionSettings& settings) {
  const bool on_link = settings.dcpu == 1;
  std::vector<std::string> lines = {"Send by " + std::string(WayOf(settings.by)) +
                                    (on_link ? "(Link)" : "(Direct)")};
  if (on_link) {
    lines.push_back("PBX ID:" + std::to_string(settings.pbx_id) +
                    ", Card ID:" + std::to_string(settings.card_id));
  }
  if (settings.by == 1) {
    lines.push_back("COM" + std::to_string(settings.port) + ", " + settings.bps);
  } else if (settings.by == 2) {
    lines.push_back("COM" + std::to_string(settings.port_modem) + ", " + settings.tel);
  } else {
    lines.push_back("IP: " + settings.ip_host + ", Port: " + settings.ip_port);
  }
  return lines;
}

}  // namespace tarvok::store
