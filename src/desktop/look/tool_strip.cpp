#include "desktop/look/tool_strip.h"

#include <QPainter>

#include "desktop/look/colours.h"

namespace tarvok::desktop {

void ToolStrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(0, height() - 1, width(), 1,
                   Mix(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 20));
}

}  // namespace tarvok::desktop
