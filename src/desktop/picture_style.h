#pragma once

#include <QProxyStyle>

namespace tarvok {

/** A style with the program's own picture where a menu or tool bar has more than fits. The style's own is black on dark
 * ground, too, and each bar looks for it, so that Qt searches all its readers of images before the first paint. */
class PictureStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace tarvok
