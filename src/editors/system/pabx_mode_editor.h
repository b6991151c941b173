#pragma once

#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "PABX Mode" (`frmPABXMode`): switches for the whole exchange. `Check1` are the flags, `Option1(0)` and (1)
 * the manual mode, `Option1(2)` and (3) the target of busy DID calls. */
class PabxModeEditor : public EditorForm {
 public:
  PabxModeEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  void AddFlags();
  void FillNumbers(const IniText& project);
  /** Shows or hides the controls that depend on other switches. */
  void Follow();
  Control& Flag(int field);

  Control* day_;
  Control* night_;
  Control* message_;
  Control* number_;
  Control* numbers_;  // cmbNum
  Control* limit_;    // txtT2T
  Control* revision_;
  std::vector<std::string> ports_;  // by entry of cmbNum: the port of its number row
};

}  // namespace tarvok::editors
