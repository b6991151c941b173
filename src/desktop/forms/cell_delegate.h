#pragma once

#include <functional>

#include <QStyledItemDelegate>

#include "desktop/forms/table_model.h"

namespace tarvok {

/** What lies over a cell while it is edited by mouse or F2: a field that asks the column's rule about every
 * key, or the column's list. */
class CellDelegate : public QStyledItemDelegate {
 public:
  CellDelegate(TableModel& model, std::function<void()> edited, QObject* parent)
      : QStyledItemDelegate(parent), model_(model), edited_(std::move(edited)) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  TableModel& model_;
  std::function<void()> edited_;
};

}  // namespace tarvok
