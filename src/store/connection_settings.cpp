#include "store/connection_settings.h"

#include <algorithm>

#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::store {
namespace {

constexpr std::string_view kDefaultSpeed = "9600,n,8,1";
constexpr std::string_view kDefaultSpeedOfBilling = "9600,n,81";
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
  const int id = text.empty() ? kNoId : SmallNumber(text);
  return id < 0 || id > kNoId ? kNoId : id;
}

}  // namespace

LinkMode ConnectionSettings::Mode() const {
  const int number = SmallNumber(by);
  const bool known = number >= 0 && number < static_cast<int>(kTransports.size());
  return known ? static_cast<LinkMode>(number) : LinkMode::kServer;
}

int ConnectionSettings::SerialPort() const {
  return PortNumber(port);
}
int ConnectionSettings::ModemPort() const {
  return PortNumber(port_modem);
}
int ConnectionSettings::Dcpu() const {
  return SmallNumber(dcpu);
}
int ConnectionSettings::PbxId() const {
  return IsDirect() ? kNoId : Id(pbx_id);
}
int ConnectionSettings::CardId() const {
  return IsDirect() ? kNoId : Id(card_id);
}
int ConnectionSettings::ChunkSize() const {
  const int size = SmallNumber(cut);
  return size < 0 || size > 255 ? 0 : size;
}

std::string_view KeyName(std::string ConnectionSettings::*text) {
  const auto is_key = [&](const ConnectionKey& key) { return key.text == text; };
  return std::find_if(kConnectionKeys.begin(), kConnectionKeys.end(), is_key)->name;
}

ConnectionSettings ReadConnection(const IniText& project, ConnectionForm form) {
  ConnectionSettings settings;
  for (const ConnectionKey& key : kConnectionKeys) {
    settings.*key.text = Trim(project.Get(kHeaderSection, key.name));
  }
  if (settings.bps.empty()) {
    settings.bps = form == ConnectionForm::kBilling ? kDefaultSpeedOfBilling : kDefaultSpeed;
  }
  if (form == ConnectionForm::kSetting) {
    for (std::string* port : {&settings.port, &settings.port_modem}) {
      if (port->empty()) *port = "1";
    }
  } else if (!settings.IsDirect() && Val(settings.card_id) < 0) {
    settings.card_id = "0";
  }
  return settings;
}

Status ReadConnection(ProjectStore& store, const std::string& project, ConnectionForm form,
                      ConnectionSettings& settings) {
  const std::shared_ptr<const IniText> text = store.Snapshot(project);
  settings = ReadConnection(*text, form);
  // Leave a file alone that cannot be read, and in the settings dialog one that is not a project.
  if (form == ConnectionForm::kSetting ? !IsProject(*text) : text->bytes().empty()) return {};
  std::vector<const ConnectionKey*> completed;
  for (const ConnectionKey& key : kConnectionKeys) {
    if (key.text == &ConnectionSettings::bps && form != ConnectionForm::kTransfer) continue;
    if (settings.*key.text != Trim(text->Get(kHeaderSection, key.name))) completed.push_back(&key);
  }
  if (completed.empty()) return {};
  return store.Update(project, [&](IniEdit& edit) {
    for (const ConnectionKey* key : completed) edit.Set(kHeaderSection, key->name, settings.*key->text);
  });
}

void WriteConnection(IniEdit& project, const ConnectionSettings& settings) {
  for (const ConnectionKey& key : kConnectionKeys) {
    project.Set(kHeaderSection, key.name, settings.*key.text);
  }
}

void WriteLoadedConnection(IniEdit& project, const ConnectionSettings& settings) {
  ConnectionSettings meant = settings;
  meant.port = std::to_string(settings.SerialPort());
  meant.port_modem = std::to_string(settings.ModemPort());
  meant.by = std::to_string(SmallNumber(settings.by));
  meant.dcpu = std::to_string(settings.Dcpu());
  meant.pbx_id = std::to_string(settings.PbxId());
  meant.card_id = std::to_string(settings.CardId());
  const auto set = [&](std::string ConnectionSettings::*text) {
    project.Set(kHeaderSection, KeyName(text), meant.*text);
  };
  for (const auto text :
       {&ConnectionSettings::port, &ConnectionSettings::port_modem, &ConnectionSettings::tel,
        &ConnectionSettings::by, &ConnectionSettings::ip_host, &ConnectionSettings::ip_port,
        &ConnectionSettings::dcpu, &ConnectionSettings::pbx_id, &ConnectionSettings::card_id}) {
    set(text);
  }
  project.Set(kHeaderSection, kHeaderTag, kLoadedTag);
  set(&ConnectionSettings::bps);
}

std::vector<std::string> SummaryLines(const ConnectionSettings& settings) {
  const bool on_link = settings.Dcpu() == 1;
  std::vector<std::string> lines = {"Send by " + std::string(settings.transport().name) +
                                    (on_link ? " (Link)" : " (Direct)")};
  if (on_link) {
    lines.push_back("PBX ID:" + std::to_string(settings.PbxId()) +
                    ", Card ID:" + std::to_string(settings.CardId()));
  }
  switch (settings.transport().port) {
    case PortKind::kSerial:
      lines.push_back("COM" + std::to_string(settings.SerialPort()) + ", " + settings.bps);
      break;
    case PortKind::kModem:
      lines.push_back("COM" + std::to_string(settings.ModemPort()) + ", " + settings.tel);
      break;
    case PortKind::kSocket:
      lines.push_back("IP: " + settings.ip_host + ", Port: " + settings.ip_port);
      break;
  }
  return lines;
}

}  // namespace tarvok::store
