#include "desktop/picture_style.h"

#include "desktop/icons.h"

namespace tarvok {

QIcon PictureStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
  if (which == SP_ToolBarHorizontalExtensionButton) return IconOf(Picture::kMore);
  return QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace tarvok
