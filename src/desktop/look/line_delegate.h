#pragma once

#include <QFontMetrics>
#include <QPainter>
#include <QStyledItemDelegate>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Paints one line of text from the left, in the middle of `room`'s height, with dots where it is too long. It is laid out
 * once, where Qt's delegate does so three times. */
void PaintLine(QPainter& painter, const QRect& room, const QString& text, const QFontMetrics& metrics);

/** How wide a line is. Latin letters are added one by one, kerning aside, which is cheaper than laying them out. */
int LineWidth(const QString& text, const QFontMetrics& metrics);

/** The distance of an item's text from its edges. */
int TextMargin();

/** The rows of a tree or a list that are a line of text each, without pictures and marks. */
class LineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/** The colours of an item in its state. */
QPalette::ColorGroup GroupOf(const QStyleOption& option);

}  // namespace tarvok::desktop
