#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** `frmBoss`: pairs of a boss and a secretary. The project holds their ports; people know them by number. A
 * number that stands on no port is none. */
class BossEditor : public FieldTableEditor {
 public:
  BossEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override { numbers_ = PortNumbers(project); }

 private:
  static std::vector<FieldColumn> Columns(BossEditor* form);

  RowNames numbers_;
};

}  // namespace tarvok::editors
