#pragma once

#include <functional>

#include <QKeyEvent>
#include <QStyledItemDelegate>

#include "desktop/forms/table_model.h"
#include "desktop/uses.h"

namespace tarvok::desktop {

/** Ctrl+Tab and Ctrl+Shift+Tab; Tab alone goes through the cells. */
inline bool LeavesTable(const QKeyEvent& key) {
  return key.modifiers().testFlag(Qt::ControlModifier) &&
         (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab);
}

/** Goes to the first entry of the list over a cell that begins with what was typed to open it, if there is one;
 * further keys go on from there. */
void SeekInList(QWidget* list, const QString& typed);

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

 protected:
  /** Ctrl+Tab leaves the table out of an open cell, too; without it Qt would open the next cell. */
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  TableModel& model_;
  std::function<void()> edited_;
};

}  // namespace tarvok::desktop
