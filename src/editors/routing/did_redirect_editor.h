#pragma once

#include <string>
#include <vector>

#include "editors/field_columns.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** "DID Redirect" (`frmDIDRedirect`): the targets of ranges of incoming numbers. What `Map Number` offers
 * depends on the row's `Map Type`. */
class DidRedirectEditor : public FieldTableEditor {
 public:
  DidRedirectEditor(const EditorContext& context, const FormName& name);

 protected:
  void Prepare(const IniText& project) override;
  void ShowRow(std::string_view value, TableRow& row) const override;

 private:
  /** What a Map Type, as shown in its cell, can refer to. */
  struct Target {
    const RowNames* names = nullptr;
    const std::vector<std::string>* offered = nullptr;
    int width = 0;
  };

  static std::vector<FieldColumn> Columns(DidRedirectEditor* form);
  Target TargetOf(std::string_view type) const;
  std::vector<std::string> MapNumbers(int row) const;
  void TypeChanged(int row);

  RowNames numbers_;
  RowNames lists_;
  std::vector<std::string> offered_numbers_;
  std::vector<std::string> offered_lists_;
  std::vector<std::string> offered_links_;
};

}  // namespace tarvok::editors
