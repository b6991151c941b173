#pragma once

#include <QProxyStyle>

class QStyleOptionSlider;

namespace tarvok {

/** A style as the system has it, but for two things that keep a window from its first paint. Where a menu or tool bar has
 * more than fits it has the program's own picture: the style's own is black on dark ground, too, and Qt searches all its
 * readers of images for it. And where the system has no style of its own, scroll bars are plain rectangles: Qt's style blends
 * their edges over the ground, for which Qt wakes threads and waits. */
class PictureStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;

 private:
  void DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const;
};

}  // namespace tarvok
