#pragma once

#include <QFontMetrics>
#include <QPainter>
#include <QStyledItemDelegate>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Paints one line of text, left-aligned and vertically centred in `room`; a text that is too long ends with
 * dots. The text is laid out once; Qt's delegate does so three times. */
void PaintLine(QPainter& painter, const QRect& room, const QString& text, const QFontMetrics& metrics);

/** Width of a line. Adds the widths of Latin letters without kerning, which is cheaper than laying them
 * out. */
int LineWidth(const QString& text, const QFontMetrics& metrics);

/** Distance between the text of an item and its edges. */
int TextMargin();

/** Paints the rows of a tree or a list that are one line of text each, without icons or check boxes. */
class LineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/** The colour group for the state of an item. */
QPalette::ColorGroup GroupOf(const QStyleOption& option);

}  // namespace tarvok::desktop
