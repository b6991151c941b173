#pragma once

#include <array>
#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editors/uses.h"
#include "sections/ports/key_dss.h"

namespace tarvok::editors {

/** "Setup Key Config" (`frmSetupKey`): the button layouts of key telephones, drawn as the telephone and its
 * console. A click on a button opens a dialog for its function. */
class SetupKeyEditor : public EditorForm {
 public:
  SetupKeyEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void BeforeWrite() override { TakeLabels(); }
  void Write(IniEdit& project) override;

 private:
  /** The fields of a layout; "" for a button that is not set. Rows that were longer keep their extra
   * fields. */
  struct Buttons {
    std::vector<std::string> keys;
    std::vector<std::string> dss;
  };

  void ShowLayout();
  void TakeLabels();
  void OpenKey(std::size_t button);
  void OpenDss(std::size_t button);
  void Put(Control& label, const std::string& text);

  std::array<Buttons, kKeyLayouts> layouts_;
  std::size_t shown_ = 0;  // index of the layout shown in the labels

  Control& list_;
  std::array<Control*, kKeysOfLayout> keys_{};
  std::array<Control*, kDssOfLayout> dss_{};
};

}  // namespace tarvok::editors
