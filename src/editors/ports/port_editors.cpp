// The editors of ports and numbers.

#include "editors/editors.h"
#include "editors/ports/frmAccount.h"
#include "editors/ports/frmBoss.h"
#include "editors/ports/frmExtension.h"
#include "editors/ports/frmGrpHunt.h"
#include "editors/ports/frmPortConfig_Def.h"
#include "editors/ports/frmPortSys_Def.h"
#include "editors/ports/frmSetupKey.h"
#include "editors/ports/number_forms.h"
#include "editors/ports/port_field_forms.h"

namespace tarvok::editors {

std::span<const Editor> PortEditors() {
  static constexpr Editor kEditors[] = {
      {"ext", {"frmExtension", "frmExtension", "Setup Number"}, Make<frmExtension>},
      {"portdefine", {"frmPortSys_Def", "frmPortDef", "Port System Define"}, Make<frmPortSys_Def>},
      {"portconfig", {"frmPortConfig_Def", "frmPortConfigDefine", "Port Config"}, Make<frmPortConfig_Def>},
      {"boss", {"frmBoss", "frmBoss", "Boss and Secretary"}, Make<frmBoss>},
      {"linktrunk", {"frmLinkTrunk", "frmLinkTrunk", "Link Trunk Number"}, Make<frmLinkTrunk>},
      {"dialphone", {"frmDialPhone", "frmDialPhone", "Key Dial Phone Number"}, Make<frmDialPhone>},
      {"callforward", {"frmCallFW", "frmCallFW", "Call Forward"}, Make<frmCallFW>},
      {"vmbox", {"frmVMBox", "frmVMBox", "Voice Mail Box"}, Make<frmVMBox>},
      {"account", {"frmAccount", "frmAccount", "Account"}, Make<frmAccount>},
      {"groupofhunt", {"frmGrpHunt", "frmGroupOfHunt", "Hunt Group"}, Make<frmGrpHunt>},
      {"vmcallback", {"frmVMCallBack", "frmVMCallBack", "VM Call Back"}, Make<frmVMCallBack>},
      {"setupkey", {"frmSetupKey", "frmSetupKey", "Setup Key Config"}, Make<frmSetupKey>},
  };
  return kEditors;
}

}  // namespace tarvok::editors
