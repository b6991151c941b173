// The editors of ports and numbers.

#include "sections/editors.h"
#include "sections/ports/frmAccount.h"
#include "sections/ports/frmBoss.h"
#include "sections/ports/frmExtension.h"
#include "sections/ports/frmGrpHunt.h"
#include "sections/ports/frmPortConfig_Def.h"
#include "sections/ports/frmPortSys_Def.h"
#include "sections/ports/frmSetupKey.h"
#include "sections/ports/number_forms.h"
#include "sections/ports/port_field_forms.h"

namespace tarvok {

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

}  // namespace tarvok
