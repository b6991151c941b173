#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "editors/editors.h"
#include "editors/field_table_editor.h"
#include "editors/routing/offered_rows.h"
#include "sections/ports/assign.h"
#include "sections/routing/did_redirect.h"
#include "sections/routing/route_list.h"
#include "store/field_list.h"

namespace tarvok::editors {
namespace did_redirect_editor {

using namespace did_redirect;

/** "DID Redirect" (`frmDIDRedirect`): the targets of ranges of incoming numbers. What `Map Number` offers
 * depends on the row's `Map Type`. */
class DidRedirectEditor : public FieldTableEditor {
 public:
  DidRedirectEditor(const EditorContext& context, const FormName& name)
      : FieldTableEditor(context, name, kTable, Columns(this),
                         {.rows = RowCommands::kFixed, .sort_by = {{kLink}, {kDidStart}}}) {
    LayOut();
  }

 protected:
  void Prepare(const IniText& project) override;
  void ShowRow(std::string_view value, TableRow& row) const override;

 private:
  /** What a Map Type, as shown in its cell, can refer to. */
  struct Target {
    const RowNames* names = nullptr;
    const std::vector<std::string>* offered = nullptr;
    int width = 0;
  };

  static std::vector<FieldColumn> Columns(DidRedirectEditor* form);
  Target TargetOf(std::string_view type) const;
  std::vector<std::string> MapNumbers(int row) const;
  /** Clears a target that the new type cannot have. */
  void TypeChanged(int row) {
    const std::vector<std::string> offered = MapNumbers(row);
    if (std::find(offered.begin(), offered.end(), grid().Cell(row, kMapNumber)) == offered.end())
      grid().EraseCell(row, kMapNumber);
  }

  RowNames numbers_;
  RowNames lists_;
  std::vector<std::string> offered_numbers_;
  std::vector<std::string> offered_lists_;
  std::vector<std::string> offered_links_;
};

std::vector<FieldColumn> DidRedirectEditor::Columns(DidRedirectEditor* form) {
  const auto& fields = kTable.fields;
  FieldColumn link{.field = kLink, .column = {.title = "E1", .entry = Entry::kList, .overlay = "cmbMask"}};
  link.column.list_of = [form](int) { return form->offered_links_; };
  FieldColumn type = ChoiceColumn(kMapType, "Map Type", fields[kMapType - 1], "cmbMask2");
  type.column.changed = [form](int row, const std::string&) { form->TypeChanged(row); };
  FieldColumn number{.field = kMapNumber,
                     .column = {.title = "Map Number", .entry = Entry::kList, .overlay = "cmbMask3"}};
  number.column.list_of = [form](int row) { return form->MapNumbers(row); };
  number.stored = [](std::string_view /*cell*/) { return std::string(kUnset); };
  number.names = [form](const std::vector<std::string>& cells) {
    const Target target = form->TargetOf(cells[kMapType - 1]);
    return NamedRows{target.names, target.width};
  };
  const EntryRule digits = DigitsRule(fields[kDidStart - 1].high);
  return {std::move(link), TypedColumn(kDidStart, "DID Start", digits),
          TypedColumn(kDidEnd, "DID End", digits), std::move(type), std::move(number)};
}

void DidRedirectEditor::Prepare(const IniText& project) {
  numbers_ = AssignNumbers(project);
  lists_ = LabelledRows(route_list::kTable);
  offered_numbers_ = numbers_.Names();
  offered_lists_ = OfferedLists(project);
  offered_links_ = OfferedLinks(project);
}

DidRedirectEditor::Target DidRedirectEditor::TargetOf(std::string_view type) const {
  const Field& types = kTable.fields[kMapType - 1];
  for (const Meaning& meaning : kTable.fields[kMapNumber - 1].meanings) {
    const auto is_type = [&](const Choice& choice) {
      return choice.stored == meaning.when && choice.shown == type;
    };
    if (!std::any_of(types.choices.begin(), types.choices.end(), is_type)) continue;
    const bool to_number = meaning.field->points_at == &assign::kTable;
    return {to_number ? &numbers_ : &lists_, to_number ? &offered_numbers_ : &offered_lists_,
            meaning.field->width};
  }
  return {};
}

void DidRedirectEditor::ShowRow(std::string_view /*value*/, TableRow& row) const {
  const Target target = TargetOf(row.cells[kMapType - 1]);
  std::string& shown = row.cells[kMapNumber - 1];
  shown = target.names != nullptr ? target.names->NameOf(shown) : std::string();
}

std::vector<std::string> DidRedirectEditor::MapNumbers(int row) const {
  const Target target = TargetOf(grid().Cell(row, kMapType));
  return target.offered != nullptr ? *target.offered : std::vector<std::string>();
}

}  // namespace did_redirect_editor

extern const Editor kDidRedirectEditor{"18 - DID Redirect",
                                       "didredirect",
                                       {"frmDIDRedirect", "DID Redirect"},
                                       Make<did_redirect_editor::DidRedirectEditor>};

}  // namespace tarvok::editors
