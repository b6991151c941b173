#pragma once

#include <QAbstractTableModel>

#include "desktop/uses.h"
#include "editing/table_editor.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/** The grid of a table editor as a read-only model for Qt's views. Changes go through the editor's rules. */
class TableModel : public QAbstractTableModel {
 public:
  TableModel(TableEditor& table, const CodePage& page, QObject* parent)
      : QAbstractTableModel(parent), table_(table), page_(page), rows_(table.rows()) {}

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : table_.columns();
  }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /** Call after the grid may have changed in any way. */
  void Refresh();

  TableEditor& table() const { return table_; }
  const CodePage& page() const { return page_; }
  /** True if the cell is being edited in its own field. */
  bool IsOpen(const QModelIndex& index) const;

 private:
  TableEditor& table_;
  const CodePage& page_;
  int rows_;  // as the views know them
};

}  // namespace tarvok::desktop
