#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "E1 Numbering" (`frmE1Numbering`): the digits in front of the numbers of a link. */
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
