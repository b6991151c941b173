#pragma once

#include <QProxyStyle>

#include "desktop/uses.h"

class QStyleOptionSlider;

namespace tarvok::desktop {

/**
 * The system's style, except for what delays the first paint of a window.
 *
 * The extension button of a menu or tool bar and the clear button of a field have the program's own pictures:
 * those of the style are black on a dark background too, and Qt tries all its image readers for them. If the
 * system has no style of its own, frames, scroll bars, buttons, fields, check boxes and options are plain
 * shapes whose borders are visible on a dark background: Qt's style blends edges and corners with the
 * background, for which Qt wakes threads and waits.
 */
class PlainStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  /** Removes Qt's pictures from the buttons of dialogs: one of them is black on a dark background. */
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
  /** Adds space at both sides of a button's caption. */
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

 private:
  /** True if the style is Qt's own, because the system has none. */
  bool IsQtsOwn() const;
  void DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const;
};

}  // namespace tarvok::desktop
