#include "desktop/look/line_delegate.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <QApplication>
#include <QStyle>

namespace tarvok::desktop {
namespace {

/** Width of a Latin letter; cached until it is asked for another font. */
int LetterWidth(QChar letter, const QFontMetrics& metrics) {
  static QFontMetrics known = metrics;
  static std::array<std::optional<int>, 0x100> widths;
  if (std::exchange(known, metrics) != metrics) widths.fill(std::nullopt);
  std::optional<int>& width = widths[letter.unicode()];
  if (!width) width = metrics.horizontalAdvance(letter);
  return *width;
}

}  // namespace

int LineWidth(const QString& text, const QFontMetrics& metrics) {
  const bool latin = std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < 0x100; });
  if (!latin) return metrics.horizontalAdvance(text);
  int width = 0;
  for (const QChar letter : text) width += LetterWidth(letter, metrics);
  return width;
}

void PaintLine(QPainter& painter, const QRect& room, const QString& text, const QFontMetrics& metrics) {
  if (text.isEmpty()) return;
  const bool fits = LineWidth(text, metrics) <= room.width();
  const int base = room.top() + (room.height() - metrics.height() + 1) / 2 + metrics.ascent();
  painter.drawText(QPoint(room.left(), base),
                   fits ? text : metrics.elidedText(text, Qt::ElideRight, room.width()));
}

int TextMargin() {
  return QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
}

QPalette::ColorGroup GroupOf(const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
  return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

void LineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const QStyle& style = *item.widget->style();
  style.drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, item.widget);
  const bool marked = item.state.testFlag(QStyle::State_Selected);
  const QPalette::ColorGroup group = GroupOf(item);
  painter->setFont(item.font);
  painter->setPen(item.palette.color(group, marked ? QPalette::HighlightedText : QPalette::Text));
  PaintLine(*painter, item.rect.adjusted(TextMargin(), 0, -TextMargin(), 0), item.text, item.fontMetrics);
  if (!item.state.testFlag(QStyle::State_HasFocus)) return;
  QStyleOptionFocusRect focus;
  focus.QStyleOption::operator=(item);
  focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
  focus.backgroundColor = item.palette.color(group, marked ? QPalette::Highlight : QPalette::Window);
  style.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, item.widget);
}

QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QVariant wanted = index.data(Qt::SizeHintRole);
  if (wanted.isValid()) return wanted.toSize();
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  return {LineWidth(item.text, item.fontMetrics) + 2 * TextMargin(), item.fontMetrics.height()};
}

}  // namespace tarvok::desktop
