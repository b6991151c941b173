#pragma once

#include <functional>

#include <QTableView>

#include "desktop/forms/table_model.h"
#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/** The one view of all table editors: keys and selection go to the editor's rules, and it shows what became of
 * them. */
class TableView : public QTableView {
 public:
  /** `acted` is called behind everything that a person did to the table here, `moved` behind another choice of
   * cells alone. */
  TableView(TableModel& model, std::function<void()> acted, std::function<void()> moved,
            QWidget* parent = nullptr);

  /** Shows the editor's rows, its current cell and its selection. */
  void Refresh();
  /** From now on shows only rows in which a cell holds the text, case aside, and the one that is being edited;
   * all rows for "". Refresh shows where that leaves the current cell. */
  void FilterRows(const QString& text);
  int shown_rows() const { return shown_rows_; }
  /** Column widths of this form, as they were left. */
  void RestoreColumns(SettingsStore& settings, const std::string& form);
  void KeepColumns(SettingsStore& settings, const std::string& form) const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void ShowRowTitle();
  bool Matches(int row) const;
  void HideRows(bool keep_current);
  void TakeSelection();
  void ShowSelection();
  void SelectCell(const QModelIndex& cell, bool extends);
  bool OpensList(const QKeyEvent* event) const;
  bool ExtendsBy(const QKeyEvent* event);

  TableModel& model_;
  std::function<void()> acted_;
  std::function<void()> moved_;
  QString filter_;
  int shown_rows_ = 0;
  bool showing_ = false;  // the view follows the editor, not the other way round
};

}  // namespace tarvok::desktop
