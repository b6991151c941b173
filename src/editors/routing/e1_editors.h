#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** `frmE1Map`: which ports an E1 link has. Rows that name a link follow it; those of a link that was emptied
 * name none any more. */
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

/** `frmE1Numbering`: the numbers in front of those of a link. */
class E1NumberingEditor : public FieldTableEditor {
 public:
  E1NumberingEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  bool IsRemoved(std::string_view /*value*/) const override { return false; }

 private:
  static std::vector<FieldColumn> Columns(E1NumberingEditor* form);

  std::vector<std::string> links_;
};

}  // namespace tarvok::editors
