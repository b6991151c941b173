#pragma once

#include <string_view>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** `frmSetRoute`: the link table of exchanges that form a network: what this one is, and by which card and device
 * it reaches each other one. */
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
