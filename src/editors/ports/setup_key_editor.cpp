#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "editing/editor_form.h"
#include "editors/editors.h"
#include "editors/field_columns.h"
#include "editors/ports/key_dialogs.h"
#include "sections/ports/key_dss.h"
#include "sections/rows.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace setup_key_editor {

using namespace key_dss;

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
  void Put(Label& label, const std::string& text) {
    if (label.text == text) return;
    label.text = text;
    MarkChanged();
  }

  std::array<Buttons, kKeyLayouts> layouts_;
  std::size_t shown_ = 0;  // index of the layout shown in the labels

  ListBox& list_;
  std::array<Label*, kKeysOfLayout> keys_{};
  std::array<Label*, kDssOfLayout> dss_{};
};

constexpr std::string_view kCodes =
    "* TE = Telephone Number\n"
    "   TR = Trunk, Map Digit Dial\n"
    "   EX = Extension number\n"
    "   GO = Group Out, Map Digit Dial\n"
    "   ML = Multiline";

std::vector<std::string> ButtonsOf(std::string_view row, std::size_t count) {
  std::vector<std::string> buttons;
  ForEachField(row, [&](std::string_view field) { buttons.push_back(CellText(field)); });
  if (buttons.size() < count) buttons.resize(count);
  return buttons;
}

std::string Joined(const std::vector<std::string>& buttons) {
  std::string row;
  for (const std::string& button : buttons) row.append(row.empty() ? "" : "|").append(FieldText(button));
  return row;
}

SetupKeyEditor::SetupKeyEditor(const EditorContext& context, const FormName& name)
    : EditorForm(context, name),
      list_(AddEntries<ListBox>({"lsGrp"}, "Layouts", NumberedEntries(1, kKeyLayouts))) {
  list_.current = 0;
  list_.changed = [this] {
    TakeLabels();
    if (list_.current >= 0) shown_ = static_cast<std::size_t>(list_.current);
    ShowLayout();
  };
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    keys_[i] = &AddLabel({"lblNum", static_cast<int>(i)}, {});
    keys_[i]->caption = "Key " + std::to_string(i + 1);
    keys_[i]->changed = [this, i] { OpenKey(i); };
  }
  for (std::size_t i = 0; i < dss_.size(); ++i) {
    dss_[i] = &AddLabel({"lblDSS", static_cast<int>(i)}, {});
    dss_[i]->caption = "DSS " + std::to_string(i + 1);
    dss_[i]->changed = [this, i] { OpenDss(i); };
  }
  SetLayout(layout::Column({layout::Row({layout::Column({layout::Group("Layout", {layout::Of(list_)}),
                                                         layout::Note(std::string(kCodes))}),
                                         layout::Picture("telephone"), layout::Picture("console")}),
                            OkAndCancel()}));
}

bool SetupKeyEditor::ShowPlace(std::string_view section, int row, int /*field*/) {
  const bool known = SameName(section, kKeys.section) || SameName(section, kDss.section);
  if (!known || row < 1 || row > kKeyLayouts) return false;
  ChooseEntry(list_, row - 1);
  return true;
}

void SetupKeyEditor::Load(const IniText& project) {
  for (int row = 1; row <= kKeyLayouts; ++row) {
    Buttons& buttons = layouts_[static_cast<std::size_t>(row) - 1];
    buttons.keys = ButtonsOf(RowValue(project, kKeys, row), keys_.size());
    buttons.dss = ButtonsOf(RowValue(project, kDss, row), dss_.size());
  }
  ShowLayout();
}

void SetupKeyEditor::ShowLayout() {
  const Buttons& buttons = layouts_[shown_];
  for (std::size_t i = 0; i < keys_.size(); ++i) keys_[i]->text = ButtonLabel(buttons.keys[i]);
  for (std::size_t i = 0; i < dss_.size(); ++i) dss_[i]->text = ButtonLabel(buttons.dss[i]);
}

void SetupKeyEditor::TakeLabels() {
  Buttons& buttons = layouts_[shown_];
  for (std::size_t i = 0; i < keys_.size(); ++i) buttons.keys[i] = ButtonField(keys_[i]->text);
  for (std::size_t i = 0; i < dss_.size(); ++i) buttons.dss[i] = ButtonField(dss_[i]->text);
}
void SetupKeyEditor::OpenKey(std::size_t button) {
  std::vector<std::string> lines = NumberedEntries(1, kLinesOfLayout);
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    const std::string_view text = keys_[i]->text;
    if (i != button && text.starts_with(kMultiline)) std::erase(lines, text.substr(kMultiline.size()));
  }
  Label& label = *keys_[button];
  OpenDialog(std::make_unique<PhoneKeyDialog>(
      label.text, std::move(lines),
      KeyDialog::Ends{[this, &label](const std::string& text) { Put(label, text); },
                      [this] { CloseDialog(); }}));
}

void SetupKeyEditor::OpenDss(std::size_t button) {
  Label& label = *dss_[button];
  OpenDialog(std::make_unique<DssKeyDialog>(
      label.text, KeyDialog::Ends{[this, &label](const std::string& text) { Put(label, text); },
                                  [this] { CloseDialog(); }}));
}

void SetupKeyEditor::Write(IniEdit& project) {
  for (int row = 1; row <= kKeyLayouts; ++row) {
    const Buttons& buttons = layouts_[static_cast<std::size_t>(row) - 1];
    project.Set(kKeys.section, KeyOf(kKeys, row), Joined(buttons.keys));
    project.Set(kDss.section, KeyOf(kDss, row), Joined(buttons.dss));
  }
}

}  // namespace setup_key_editor

extern const Editor kSetupKeyEditor{"29 - Setup Key Config",
                                    "setupkey",
                                    {"frmSetupKey", "Setup Key Config"},
                                    Make<setup_key_editor::SetupKeyEditor>};

}  // namespace tarvok::editors
