#include "desktop/transfer/connection_keys.h"

#include <array>

#include "store/connection_settings.h"
#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::desktop {
namespace {

namespace key = connection_key;

struct KeyOfMember {
  std::string_view name;
  std::string ConnectionKeys::*text;
};

/** The keys in the order in which they are written. */
constexpr std::array<KeyOfMember, 12> kKeys = {{{key::kPort, &ConnectionKeys::port},
                                                {key::kBps, &ConnectionKeys::bps},
                                                {key::kPortModem, &ConnectionKeys::port_modem},
                                                {key::kTel, &ConnectionKeys::tel},
                                                {key::kBy, &ConnectionKeys::by},
                                                {key::kDcpu, &ConnectionKeys::dcpu},
                                                {key::kPbxId, &ConnectionKeys::pbx_id},
                                                {key::kCardId, &ConnectionKeys::card_id},
                                                {key::kIpHost, &ConnectionKeys::ip_host},
                                                {key::kIpPort, &ConnectionKeys::ip_port},
                                                {key::kCut, &ConnectionKeys::cut},
                                                {key::kCompare, &ConnectionKeys::compare}}};

constexpr std::string_view kFirstPort = "1";
constexpr std::int64_t kLastTransport = 4;

}  // namespace

int ConnectionKeys::Transport() const {
  const std::int64_t transport = Val(by);
  return transport >= 1 && transport <= kLastTransport ? static_cast<int>(transport) : 0;
}

bool ConnectionKeys::IsLinked() const {
  return Val(dcpu) != 0;
}

Status ReadConnectionKeys(ProjectStore& store, const std::string& project, ConnectionKeys& keys) {
  const std::shared_ptr<const IniText> text = store.Snapshot(project);
  for (const KeyOfMember& entry : kKeys) keys.*entry.text = Trim(text->Get(kHeaderSection, entry.name));
  if (keys.bps.empty()) keys.bps = kDefaultBps;
  const bool no_port = keys.port.empty();
  const bool no_modem = keys.port_modem.empty();
  if (no_port) keys.port = kFirstPort;
  if (no_modem) keys.port_modem = kFirstPort;
  if ((!no_port && !no_modem) || !IsProject(*text)) return {};
  return store.Update(project, [&](IniEdit& edit) {
    if (no_port) edit.Set(kHeaderSection, key::kPort, kFirstPort);
    if (no_modem) edit.Set(kHeaderSection, key::kPortModem, kFirstPort);
  });
}

Status WriteConnectionKeys(ProjectStore& store, const std::string& project, const ConnectionKeys& keys) {
  return store.Update(project, [&](IniEdit& edit) {
    for (const KeyOfMember& entry : kKeys) edit.Set(kHeaderSection, entry.name, keys.*entry.text);
  });
}

}  // namespace tarvok::desktop
