// The editors of what belongs to the exchange as a whole.

#include "editors/editors.h"
#include "editors/system/frmBillingMode.h"
#include "editors/system/frmMiniBar.h"
#include "editors/system/frmPABXMode.h"
#include "editors/system/frmRunScript.h"
#include "editors/system/frmSetIP.h"
#include "editors/system/frmSystemConfig.h"

namespace tarvok::editors {

std::span<const Editor> SystemEditors() {
  static constexpr Editor kEditors[] = {
      {"systemconfig", {"frmSystemConfig", "frmSystemConfig", "System Configuration"}, Make<frmSystemConfig>},
      {"pabxmode", {"frmPABXMode", "frmPABXMode", "PABX Mode"}, Make<frmPABXMode>},
      {.key = "billingmode",
       .name = {"frmBillingMode", "frmBillingMode", "Billing Mode"},
       .make = Make<frmBillingMode>,
       .needs_system_file = true},
      {"minibar", {"frmMiniBar", "frmMiniBar", "Mini Bar"}, Make<frmMiniBar>},
      {"runscript", {"frmRunScript", "frmRunScript", "Run Script"}, Make<frmRunScript>},
      {"setip", {"frmSetIP", "frmSetIP", "IP PBX"}, Make<frmSetIP>},
  };
  return kEditors;
}

}  // namespace tarvok::editors
