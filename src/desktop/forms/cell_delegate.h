#pragma once

#include <functional>

#include <QKeyEvent>
#include <QStyledItemDelegate>

#include "desktop/forms/table_model.h"
#include "desktop/uses.h"

namespace tarvok::desktop {

/** True for Ctrl+Tab and Ctrl+Shift+Tab, which leave the table; Tab alone goes through the cells. */
inline bool LeavesTable(const QKeyEvent& key) {
  return key.modifiers().testFlag(Qt::ControlModifier) &&
         (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab);
}

/** Selects the first entry that begins with `typed` in the list over a cell, if there is one. Further keys
 * extend the search. */
void SeekInList(QWidget* list, const QString& typed);

/** Makes the widget over a cell that is edited by mouse or F2: a field that applies the column's rule to
 * every key, or the column's list. */
class CellDelegate : public QStyledItemDelegate {
 public:
  CellDelegate(TableModel& model, std::function<void()> edited, QObject* parent)
      : QStyledItemDelegate(parent), model_(model), edited_(std::move(edited)) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  /** Makes Ctrl+Tab leave the table from an open cell; Qt would open the next cell. */
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  TableModel& model_;
  std::function<void()> edited_;
};

}  // namespace tarvok::desktop
