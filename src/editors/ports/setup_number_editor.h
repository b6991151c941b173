#pragma once

#include <string>
#include <vector>

#include "editing/repeat_list.h"
#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/**
 * "Setup Number" (`frmExtension`): the numbering plan, with the sections `Assign` and `Name` in one table.
 * Saving sorts the rows by number and updates all references to them.
 */
class SetupNumberEditor : public FieldTableEditor {
 public:
  SetupNumberEditor(const EditorContext& context, const FormName& name);

  /** A place in `Name` is shown at the number with that name. */
  bool ShowPlace(std::string_view section, int row, int field) override;

 protected:
  void Prepare(const IniText& project) override;
  int RowsToShow(const IniText& project) const override { return RowsUpToNow(project, statement()); }
  void ShowRow(std::string_view value, TableRow& row) const override;
  std::string RowText(int row) const override;
  /** A row without a number cannot be referenced. */
  bool KeepsReferences(int row) const override;
  bool MaySave() override;
  void BeforeWrite() override { Sort(true); }
  void Write(IniEdit& project) override;
  bool EndsWithoutProject() const override { return true; }

 private:
  static std::vector<FieldColumn> Columns(SetupNumberEditor* form);

  bool CheckNumbers();
  bool CheckPorts();
  Entry ValueEntry(int row) const;
  std::vector<std::string> ValueList(int row) const;
  void TypeChanged(int row);
  /** The port of a row's number, as stored; 0 if none. */
  int PortOf(int row) const;
  void WriteNames(IniEdit& project);
  void LinkPorts(IniEdit& project) const;
  void FollowSecretaries(IniEdit& project) const;

  RepeatList repeats_;
  RowNames ports_;
  RowNames names_;
  std::vector<std::string> name_texts_;  // by row from 0: the stored reference to its name
};

}  // namespace tarvok::editors
