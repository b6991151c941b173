#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/**
 * "E1 Mapping" (`frmE1Map`): the ports of each E1 link. References to a link are updated when its row moves
 * and cleared when the link is emptied.
 */
class E1MappingEditor : public FieldTableEditor {
 public:
  E1MappingEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  void Write(IniEdit& project) override;
  bool IsRemoved(std::string_view /*value*/) const override { return false; }
  bool KeepsReferences(int row) const override;

 private:
  static std::vector<FieldColumn> Columns(E1MappingEditor* form);

  RowNames ports_;
};

}  // namespace tarvok::editors
