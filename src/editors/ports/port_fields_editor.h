#pragma once

#include <string>
#include <vector>

#include "editors/field_table_editor.h"
#include "editors/uses.h"

namespace tarvok::editors::port_fields_editor {

/**
 * The base of editors for fields of ports that "Port System Define" does not show. The table has a row for
 * each port in use up to "Now": card, channel and number, which are read-only, then the editor's own fields.
 * Saving writes every port under its key; fields without a column stay as they were.
 */
class PortFieldsEditor : public FieldTableEditor {
 public:
  PortFieldsEditor(const EditorContext& context, const FormName& name, std::vector<FieldColumn> columns);

  bool ShowPlace(std::string_view section, int row, int field) override;
  /** Rows keep their numbers, which may have gaps. */
  void Saved() override {}

 protected:
  /** A typed column with the field's name as its title. */
  static FieldColumn Typed(int field, EntryRule rule);
  /** A column of the field's choices with the field's name as its title. */
  static FieldColumn Listed(int field, std::string overlay);

  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;
  void ShowRow(std::string_view value, TableRow& row) const override;

 private:
  RowNames numbers_;
};

}  // namespace tarvok::editors::port_fields_editor
