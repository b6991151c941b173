#pragma once

#include <string_view>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "PBX Link Table" (`frmSetRoute`): the links of networked exchanges: this exchange's ID, and the card and
 * device that reach each of the others. */
class PbxLinkEditor : public FieldTableEditor {
 public:
  PbxLinkEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  void Write(IniEdit& project) override;

 private:
  static std::vector<FieldColumn> Columns();

  Control& pbx_id_;
  Control& gateway_;
};

}  // namespace tarvok::editors
