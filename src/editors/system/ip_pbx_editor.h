#pragma once

#include <array>

#include "editing/editor_form.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "IP PBX" (`frmSetIP`): the exchange's IP address, `txtIP_Port(0)` to (3), and the last bytes of its MAC
 * address, `txtRunScript(0)` and (1). A dot or Return moves to the next box. */
class IpPbxEditor : public EditorForm {
 public:
  IpPbxEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static constexpr std::size_t kAddressParts = 4;
  static constexpr std::size_t kMacBytes = 2;

  bool GoOn(std::size_t box, Key key);

  std::array<Control*, kAddressParts + kMacBytes> boxes_{};
};

}  // namespace tarvok::editors
