#include "desktop/look/plain_style.h"

#include <algorithm>

#include <QPainter>
#include <QStyleOption>

#include "desktop/look/colours.h"
#include "desktop/look/edge.h"
#include "desktop/look/icons.h"

namespace tarvok::desktop {
namespace {

constexpr int kCaptionMargins = 24;  // space at both sides of a button's caption together
constexpr int kHandleEdge = 3;       // between a handle and the sides of its scroll bar

/** Draws an arrow head in the middle of a button, pointing in the direction (1, 0), (0, 1) or the
 * opposite. */
void DrawArrow(QPainter& painter, const QRect& button, QPointF to, const QColor& colour) {
  constexpr double kHalf = 2;
  const QPointF middle = QRectF(button).center();
  const QPointF across(to.y(), to.x());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF head[] = {middle - kHalf * to - 2 * kHalf * across, middle + kHalf * to,
                          middle - kHalf * to + 2 * kHalf * across};
  painter.drawPolyline(head, 3);
  painter.restore();
}

void DrawButton(const QStyleOptionButton& button, QPainter& painter) {
  const auto is = [&](QStyle::StateFlag flag) { return (button.state & flag) != 0; };
  const bool down = is(QStyle::State_Sunken) || is(QStyle::State_On);
  if ((button.features & QStyleOptionButton::Flat) != 0 && !down) return;
  const bool enabled = is(QStyle::State_Enabled);
  const bool marked = (button.features & QStyleOptionButton::DefaultButton) != 0 ||
                      (is(QStyle::State_HasFocus) && is(QStyle::State_KeyboardFocusChange));
  const QColor ground = button.palette.color(QPalette::Button);
  const QColor ink = button.palette.color(QPalette::Active, QPalette::WindowText);
  const int shade = down ? 22 : enabled && is(QStyle::State_MouseOver) ? 8 : 0;
  painter.fillRect(button.rect, enabled && marked ? button.palette.color(QPalette::Highlight)
                                                  : Mix(ink, ground, enabled ? 28 : 14));
  painter.fillRect(button.rect.adjusted(1, 1, -1, -1), Mix(ink, ground, shade));
}

/** The border colour of fields, check boxes and options. */
QColor EdgeColour(const QStyleOption& option) {
  if ((option.state & QStyle::State_HasFocus) != 0) return option.palette.color(QPalette::Highlight);
  const QColor ink = option.palette.color(QPalette::Active, QPalette::WindowText);
  const int shade = (option.state & QStyle::State_Enabled) != 0 ? 34 : 18;
  return Mix(ink, option.palette.color(QPalette::Window), shade);
}

/** Draws the border of a list or a table. */
void DrawFrame(const QStyleOption& option, QPainter& painter) {
  const QColor ground = option.palette.color(QPalette::Window);
  PaintEdge(painter, option.rect, Mix(option.palette.color(QPalette::WindowText), ground, 20));
}

void DrawCheckBox(const QStyleOption& option, QPainter& painter) {
  painter.fillRect(option.rect, option.palette.color(QPalette::Base));
  PaintEdge(painter, option.rect, EdgeColour(option));
  if ((option.state & QStyle::State_On) == 0) return;
  const QRectF box(option.rect);
  const auto at = [&](double x, double y) {
    return box.topLeft() + QPointF(x * box.width(), y * box.height());
  };
  const QPointF mark[] = {at(0.25, 0.5), at(0.43, 0.7), at(0.76, 0.3)};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(option.palette.color(QPalette::Text), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(mark, 3);
  painter.restore();
}

/** Draws an option: round, with a dot in the colour of text. */
void DrawOption(const QStyleOption& option, QPainter& painter) {
  const QPalette& colours = option.palette;
  QRectF circle = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(EdgeColour(option));
  painter.setBrush(colours.color(QPalette::Base));
  painter.drawEllipse(circle);
  if ((option.state & QStyle::State_On) != 0) {
    const double inside = circle.width() / 3.5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.color(QPalette::Text));
    painter.drawEllipse(circle.adjusted(inside, inside, -inside, -inside));
  }
  painter.restore();
}

}  // namespace

bool PlainStyle::IsQtsOwn() const {
  return baseStyle()->inherits("QFusionStyle");
}

QIcon PlainStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
  if (which == SP_ToolBarHorizontalExtensionButton) return IconOf(Picture::kMore);
  if (which == SP_LineEditClearButton) return IconOf(Picture::kClear);
  return QProxyStyle::standardIcon(which, option, widget);
}

int PlainStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* more) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons && IsQtsOwn()) return 0;
  return QProxyStyle::styleHint(hint, option, widget, more);
}

QSize PlainStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const {
  const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type != CT_PushButton || !IsQtsOwn()) return size;
  return {std::max(size.width(), contents.width() + kCaptionMargins), size.height()};
}

void PlainStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  const auto* bar = control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  if (bar != nullptr && IsQtsOwn()) return DrawScrollBar(*bar, *painter, widget);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void PlainStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  const auto* button =
      element == PE_PanelButtonCommand ? qstyleoption_cast<const QStyleOptionButton*>(option) : nullptr;
  if (button != nullptr && IsQtsOwn()) return DrawButton(*button, *painter);
  if (element == PE_FrameLineEdit && IsQtsOwn())
    return PaintEdge(*painter, option->rect, EdgeColour(*option));
  const bool is_list = widget == nullptr || !widget->inherits("QComboBoxPrivateContainer");
  if (element == PE_Frame && is_list && IsQtsOwn()) return DrawFrame(*option, *painter);
  const bool is_part = (option->state & State_NoChange) != 0;
  if (element == PE_IndicatorCheckBox && !is_part && IsQtsOwn()) return DrawCheckBox(*option, *painter);
  if (element == PE_IndicatorRadioButton && IsQtsOwn()) return DrawOption(*option, *painter);
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PlainStyle::DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter,
                               const QWidget* widget) const {
  const QColor ground = bar.palette.color(QPalette::Window);
  const QColor ink = bar.palette.color(QPalette::WindowText);
  const bool upright = bar.orientation == Qt::Vertical;
  const auto part = [&](SubControl which) {
    return proxy()->subControlRect(CC_ScrollBar, &bar, which, widget);
  };
  // How dark a part is, in percent of the text colour: darker under the pointer, and more so when pressed.
  const auto shade = [&](SubControl which, int rest) {
    if ((bar.activeSubControls & which) == 0) return Mix(ink, ground, rest);
    return Mix(ink, ground, rest + ((bar.state & State_Sunken) != 0 ? 24 : 12));
  };
  const bool moves = bar.minimum < bar.maximum && (bar.state & State_Enabled) != 0;
  painter.fillRect(bar.rect, Mix(ink, ground, 5));
  if (moves) {
    const QRect handle = part(SC_ScrollBarSlider);
    painter.fillRect(upright ? handle.adjusted(kHandleEdge, 0, -kHandleEdge, 0)
                             : handle.adjusted(0, kHandleEdge, 0, -kHandleEdge),
                     shade(SC_ScrollBarSlider, 28));
  }
  const QPointF forward = upright ? QPointF(0, 1) : QPointF(1, 0);
  const QPointF right = bar.direction == Qt::RightToLeft && !upright ? -forward : forward;
  DrawArrow(painter, part(SC_ScrollBarAddLine), right, shade(SC_ScrollBarAddLine, moves ? 60 : 25));
  DrawArrow(painter, part(SC_ScrollBarSubLine), -right, shade(SC_ScrollBarSubLine, moves ? 60 : 25));
}

}  // namespace tarvok::desktop
