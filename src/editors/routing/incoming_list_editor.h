#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "Incoming List" (`frmIncomingLst`): the destinations of incoming calls. Saving sorts the rows by name and
 * updates the ports that refer to them. */
class IncomingListEditor : public FieldTableEditor {
 public:
  IncomingListEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  int RowsToShow(const IniText& project) const override;
  void BeforeWrite() override { Sort(true); }
  void Write(IniEdit& project) override;
  bool KeepsReferences(int row) const override;

 private:
  static std::vector<FieldColumn> Columns(IncomingListEditor* form);

  RowNames numbers_;
  std::vector<std::string> offered_;
};

}  // namespace tarvok::editors
