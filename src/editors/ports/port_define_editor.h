#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/ports/number_links.h"
#include "editors/uses.h"

namespace tarvok::editors {

/**
 * "Port System Define" (`frmPortSys_Def`): the cards of the exchange, one row per port. Saving sorts the
 * ports by card, updates all references to them, and links numbers to them.
 */
class PortDefineEditor : public FieldTableEditor {
 public:
  PortDefineEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  int RowsToShow(const IniText& project) const override { return RowsUpToNow(project, statement()); }
  void ShowRow(std::string_view value, TableRow& row) const override;
  std::string RowText(int row) const override;
  /** A row without card, channel and type is not a port, whatever else it holds. */
  bool IsRemoved(std::string_view value) const override;
  /** True if the row is a port that can be referenced. */
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
  std::vector<std::string> number_fields_;  // by row from 0: the stored reference to its number
  Control& card_;
  Control& type_;
};

}  // namespace tarvok::editors
