#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/ports/number_links.h"
#include "editors/uses.h"

namespace tarvok::editors {

/**
 * `frmPortSys_Def`: which card sits in which slot, a row a port. A save puts the ports in the order of their
 * cards, so that they move; all that refers to them follows, and numbers are linked to them.
 */
class PortDefineEditor : public FieldTableEditor {
 public:
  PortDefineEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  int RowsToShow(const IniText& project) const override { return RowsUpToNow(project, statement()); }
  void ShowRow(std::string_view value, TableRow& row) const override;
  std::string RowText(int row) const override;
  /** Without card, channel and type a row is no port, whatever else it holds. */
  bool IsRemoved(std::string_view value) const override;
  /** The row is a port that something can refer to. */
  bool KeepsReferences(int row) const override;
  bool MaySave() override;
  void BeforeWrite() override { Sort(true); }
  void Write(IniEdit& project) override;
  bool EndsWithoutProject() const override { return true; }

 private:
  static std::vector<FieldColumn> Columns(PortDefineEditor* form);

  void InsertChosenCard();
  std::string PortField(int row, int field) const;
  bool IsStored(int row) const;
  bool IsRowKept(int row) const;
  static int NamedNumber(const IniText& project, int port);
  void FollowPorts(IniEdit& project) const;
  NumberLinks LinksFor(const IniEdit& project) const;
  void MoveAccounts(IniEdit& project) const;
  void KeepLines(IniEdit& project) const;

  RowNames incoming_;
  RowNames numbers_;
  std::vector<std::string> number_fields_;  // by row from 0: the reference to its number, as it is written
  Control& card_;
  Control& type_;
};

}  // namespace tarvok::editors
