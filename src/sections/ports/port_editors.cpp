// The editors of ports and numbers.

#include "sections/editors.h"
#include "sections/ports/number_forms.h"

namespace tarvok {

std::span<const Editor> PortEditors() {
  static constexpr Editor kEditors[] = {
      {"linktrunk", {"frmLinkTrunk", "frmLinkTrunk", "Link Trunk Number"}, Make<frmLinkTrunk>},
      {"dialphone", {"frmDialPhone", "frmDialPhone", "Key Dial Phone Number"}, Make<frmDialPhone>},
      {"vmcallback", {"frmVMCallBack", "frmVMCallBack", "VM Call Back"}, Make<frmVMCallBack>},
  };
  return kEditors;
}

}  // namespace tarvok
