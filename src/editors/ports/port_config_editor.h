#pragma once

#include <array>
#include <string>

#include "editing/editor_form.h"
#include "editors/uses.h"
#include "sections/ports/port_config.h"

namespace tarvok::editors {

/**
 * "Port Config" (`frmPortConfig_Def`): the port profiles. All are held as texts, "" for a field that is not
 * set. The controls show one of them, which is updated when it is left.
 */
class PortConfigEditor : public EditorForm {
 public:
  PortConfigEditor(const EditorContext& context, const FormName& name);

  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Load(const IniText& project) override;
  void BeforeWrite() override { TakeControls(); }
  void Write(IniEdit& project) override;

 private:
  static constexpr std::size_t kFields = port_config::kRingTransfer;
  static constexpr std::size_t kReverseChoices = 4;

  void AddControls();
  void LayOut();
  void ShowProfile();
  void ShowField(std::size_t index, const std::string& text);
  void TakeControls();
  void TakeField(std::size_t index, std::string& text) const;

  std::array<std::array<std::string, kFields>, kPortConfigRows> profiles_;
  std::vector<std::string> groups_;  // the groups of classes that are offered
  std::size_t shown_ = 0;            // index of the profile shown in the controls

  Control& list_;
  Control& link_trunk_;
  std::array<Control*, kFields> controls_{};  // by field from 0; the first option for a group of options
  std::array<Control*, kReverseChoices> reverse_{};
  std::array<bool, kFields> chosen_{};  // by field from 0: the user has chosen an entry in the shown profile
};

}  // namespace tarvok::editors
