// The editors of settings of the exchange as a whole.

#include "editors/editors.h"
#include "editors/system/billing_mode_editor.h"
#include "editors/system/ip_pbx_editor.h"
#include "editors/system/mini_bar_editor.h"
#include "editors/system/pabx_mode_editor.h"
#include "editors/system/run_script_editor.h"
#include "editors/system/system_config_editor.h"

namespace tarvok::editors {

std::span<const Editor> SystemEditors() {
  static constexpr Editor kEditors[] = {
      {"systemconfig",
       {"frmSystemConfig", "frmSystemConfig", "System Configuration"},
       Make<SystemConfigEditor>},
      {"pabxmode", {"frmPABXMode", "frmPABXMode", "PABX Mode"}, Make<PabxModeEditor>},
      {.key = "billingmode",
       .name = {"frmBillingMode", "frmBillingMode", "Billing Mode"},
       .make = Make<BillingModeEditor>,
       .needs_system_file = true},
      {"minibar", {"frmMiniBar", "frmMiniBar", "Mini Bar"}, Make<MiniBarEditor>},
      {"runscript", {"frmRunScript", "frmRunScript", "Run Script"}, Make<RunScriptEditor>},
      {"setip", {"frmSetIP", "frmSetIP", "IP PBX"}, Make<IpPbxEditor>},
  };
  return kEditors;
}

}  // namespace tarvok::editors
