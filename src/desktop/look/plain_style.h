#pragma once

#include <QProxyStyle>

#include "desktop/uses.h"

class QStyleOptionSlider;

namespace tarvok::desktop {

/** A style as the system has it, but for what keeps a window from its first paint. Where a menu or tool bar has more than
 * fits it has the program's own picture, and so has a field that can be cleared: the style's own are black on dark ground,
 * too, and Qt searches all its readers of images for them. And where the system has no style of its own, frames, scroll bars,
 * buttons, fields, check boxes and options are plain shapes, with an edge that is seen on dark ground: Qt's style blends edges
 * and corners over the ground, for which Qt wakes threads and waits. */
class PlainStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  /** Buttons of dialogs have no pictures of Qt's: one of them is black on dark ground. */
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
  /** A caption has room beside it. */
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

 private:
  /** Whether the system has no style of its own. */
  bool IsQtsOwn() const;
  void DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const;
};

}  // namespace tarvok::desktop
