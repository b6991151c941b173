#pragma once

#include <array>

#include "editing/editor_form.h"
#include "editors/uses.h"
#include "sections/system/run_script.h"

namespace tarvok::editors {

/** "Run Script" (`frmRunScript`): the numbers of the scripts for seven events, `txtRunScript(0)` to (6). */
class RunScriptEditor : public EditorForm {
 public:
  RunScriptEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  std::array<Control*, kScriptEvents> boxes_{};
};

}  // namespace tarvok::editors
