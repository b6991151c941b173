// The editors of ports and numbers.

#include "editors/editors.h"
#include "editors/ports/account_editor.h"
#include "editors/ports/boss_editor.h"
#include "editors/ports/call_forward_editor.h"
#include "editors/ports/dial_phone_editor.h"
#include "editors/ports/hunt_group_editor.h"
#include "editors/ports/link_trunk_editor.h"
#include "editors/ports/port_config_editor.h"
#include "editors/ports/port_define_editor.h"
#include "editors/ports/setup_key_editor.h"
#include "editors/ports/setup_number_editor.h"
#include "editors/ports/vm_call_back_editor.h"
#include "editors/ports/voice_mail_box_editor.h"

namespace tarvok::editors {

std::span<const Editor> PortEditors() {
  static constexpr Editor kEditors[] = {
      {"ext", {"frmExtension", "frmExtension", "Setup Number"}, Make<SetupNumberEditor>},
      {"portdefine", {"frmPortSys_Def", "frmPortDef", "Port System Define"}, Make<PortDefineEditor>},
      {"portconfig", {"frmPortConfig_Def", "frmPortConfigDefine", "Port Config"}, Make<PortConfigEditor>},
      {"boss", {"frmBoss", "frmBoss", "Boss and Secretary"}, Make<BossEditor>},
      {"linktrunk", {"frmLinkTrunk", "frmLinkTrunk", "Link Trunk Number"}, Make<LinkTrunkEditor>},
      {"dialphone", {"frmDialPhone", "frmDialPhone", "Key Dial Phone Number"}, Make<DialPhoneEditor>},
      {"callforward", {"frmCallFW", "frmCallFW", "Call Forward"}, Make<CallForwardEditor>},
      {"vmbox", {"frmVMBox", "frmVMBox", "Voice Mail Box"}, Make<VoiceMailBoxEditor>},
      {"account", {"frmAccount", "frmAccount", "Account"}, Make<AccountEditor>},
      {"groupofhunt", {"frmGrpHunt", "frmGroupOfHunt", "Hunt Group"}, Make<HuntGroupEditor>},
      {"vmcallback", {"frmVMCallBack", "frmVMCallBack", "VM Call Back"}, Make<VmCallBackEditor>},
      {"setupkey", {"frmSetupKey", "frmSetupKey", "Setup Key Config"}, Make<SetupKeyEditor>},
  };
  return kEditors;
}

}  // namespace tarvok::editors
