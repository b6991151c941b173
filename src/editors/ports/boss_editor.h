#pragma once

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Boss and Secretary" (`frmBoss`): pairs of a boss and a secretary. The project stores their ports, the
 * table shows their numbers. Other numbers are stored as not set. */
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
