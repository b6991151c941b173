#pragma once

#include <functional>

#include <QTableView>

#include "desktop/forms/table_model.h"
#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/** The view of all table editors. It passes keys and selections to the editor's rules, and shows the
 * result. */
class TableView : public QTableView {
 public:
  /** `acted` is called after every user action that may change the table, `moved` after one that only changes
   * the selection. */
  TableView(TableModel& model, std::function<void()> acted, std::function<void()> moved,
            QWidget* parent = nullptr);

  /** Shows the editor's rows, its current cell and its selection. */
  void Refresh();
  /** Shows only rows with a cell that contains the text, ignoring case, and the row that is being edited; all
   * rows for "". Call Refresh afterwards to show the current cell. */
  void FilterRows(const QString& text);
  int shown_rows() const { return shown_rows_; }
  /** Restores the column widths of this form that KeepColumns stored. */
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
  bool showing_ = false;  // the view is being updated from the editor; its signals are ignored
};

}  // namespace tarvok::desktop
