#pragma once

#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** `frmPABXMode`: the switches that govern the exchange as a whole. `Check1` are the flags, `Option1(0)` and
 * (1) the manual mode, `Option1(2)` and (3) where a busy DID call goes. */
class PabxModeEditor : public EditorForm {
 public:
  PabxModeEditor(const EditorContext& context, const FormName& name);

 protected:
  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  void AddFlags();
  void FillNumbers(const IniText& project);
  /** What depends on other switches shows itself or not. */
  void Follow();
  Control& Flag(int field);

  Control* day_;
  Control* night_;
  Control* message_;
  Control* number_;
  Control* numbers_;  // cmbNum
  Control* limit_;    // txtT2T
  Control* revision_;
  std::vector<std::string> ports_;  // of each entry of cmbNum, as its number row says
};

}  // namespace tarvok::editors
