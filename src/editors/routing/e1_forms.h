#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** `frmE1Map`: which ports an E1 link has. Rows that name a link follow it; those of a link that was emptied
 * name none any more. */
class frmE1Map : public FieldTableForm {
 public:
  frmE1Map(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  void Write(IniEdit& project) override;
  bool IsRemoved(std::string_view /*value*/) const override { return false; }
  bool KeepsReferences(int row) const override;

 private:
  static std::vector<FieldColumn> Columns(frmE1Map* form);

  RowNames ports_;
};

/** `frmE1Numbering`: the numbers in front of those of a link. */
class frmE1Numbering : public FieldTableForm {
 public:
  frmE1Numbering(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  bool IsRemoved(std::string_view /*value*/) const override { return false; }

 private:
  static std::vector<FieldColumn> Columns(frmE1Numbering* form);

  std::vector<std::string> links_;
};

}  // namespace tarvok::editors
