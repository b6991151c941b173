#pragma once

#include <string>

#include "desktop/uses.h"
#include "store/project_store.h"

namespace tarvok::desktop {

/** The connection keys of a project as texts, as they are stored and as `frmSetting` edits them. */
struct ConnectionKeys {
  std::string port;
  std::string bps;
  std::string port_modem;
  std::string tel;
  std::string by;
  std::string dcpu;
  std::string pbx_id;
  std::string card_id;
  std::string ip_host;
  std::string ip_port;
  std::string cut;
  std::string compare;  // the dialog has no control for it and writes back what it read

  /** The transport: 1 serial, 2 modem, 3 LAN to serial, 4 LAN, 0 server or anything else. */
  int Transport() const;
  bool IsLinked() const;
};

/** Reads the keys with the dialog's defaults: "1" for an empty port, which is written back at once, and a
 * whole settings text for an empty speed. Returns the error of that write; `keys` is valid all the same. */
Status ReadConnectionKeys(ProjectStore& store, const std::string& project, ConnectionKeys& keys);

/** Writes all keys at once. */
Status WriteConnectionKeys(ProjectStore& store, const std::string& project, const ConnectionKeys& keys);

}  // namespace tarvok::desktop
