#include <string>
#include <utility>
#include <vector>

#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "editors/routing/offered_rows.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/e1_number.h"
#include "sections/row_fields.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::editors {
namespace e1_numbering_editor {

/** "E1 Numbering" (`frmE1Numbering`): the digits in front of the numbers of a link. */
class E1NumberingEditor : public FieldTableEditor {
 public:
  E1NumberingEditor(const EditorContext& context, const FormName& name)
      : FieldTableEditor(context, name, e1_number::kTable, Columns(this),
                         {.rows = RowCommands::kFixed, .sort_by = {{e1_number::kLink}}}) {
    LayOut();
  }

 protected:
  void Prepare(const IniText& project) override { links_ = OfferedLinks(project); }
  bool IsRemoved(std::string_view /*value*/) const override { return false; }

 private:
  static std::vector<FieldColumn> Columns(E1NumberingEditor* form);

  std::vector<std::string> links_;
};

std::vector<FieldColumn> E1NumberingEditor::Columns(E1NumberingEditor* form) {
  using namespace e1_number;
  const auto& fields = kTable.fields;
  const auto is_number = [](std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  FieldColumn link{.field = kLink, .column = {.title = "E1", .entry = Entry::kList, .overlay = "cmbMask"}};
  link.column.list_of = [form](int) { return form->links_; };
  link.shown = [is_number](std::string_view stored) {
    return is_number(stored) ? std::to_string(Val(stored)) : CellText(stored);
  };
  link.stored = [is_number, width = fields[kLink - 1].width](std::string_view cell) {
    return is_number(cell) ? Padded(Val(cell), width) : FieldText(cell);
  };
  const EntryRule numbering = {.characters = "0123456789*#", .most = fields[kNumbering - 1].high};
  return {std::move(link), TypedColumn(kNumbering, "Numbering", numbering),
          TypedColumn(kDigitCheck, "Digit Check", DigitsRule(2))};
}
}  // namespace e1_numbering_editor

extern const Editor kE1NumberingEditor{"17 - E1 Numbering",
                                       "e1numbering",
                                       {"frmE1Numbering", "E1 Numbering"},
                                       Make<e1_numbering_editor::E1NumberingEditor>};

}  // namespace tarvok::editors
