#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/**
 * A table of the ports in use up to "Now", each under its own key, for fields of a port that the editor of the
 * ports leaves alone: card, channel and number to tell the port by, and the fields behind them. A save writes every
 * port with the fields that it has, those without a column as they were.
 */
class PortFieldsEditor : public FieldTableEditor {
 public:
  PortFieldsEditor(const EditorContext& context, const FormName& name, std::vector<FieldColumn> columns);

  bool ShowPlace(std::string_view section, int row, int field) override;
  /** Rows stand closer here than in the project and keep their numbers. */
  void Saved() override {}

 protected:
  /** A column that takes what `rule` allows, under the field's own name. */
  static FieldColumn Typed(int field, EntryRule rule);
  /** A column that offers the field's choices, under the field's own name. */
  static FieldColumn Listed(int field, std::string overlay);

  void Load(const IniText& project) override;
  void Write(IniEdit& project) override;
};

}  // namespace tarvok::editors
