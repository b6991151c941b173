#include "desktop/look/group_frame.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include "desktop/look/colours.h"
#include "desktop/look/edge.h"

namespace tarvok::desktop {

void GroupFrame::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionGroupBox group;
  initStyleOption(&group);
  constexpr int kBelowTitle = 3;
  const auto part = [&](QStyle::SubControl which) {
    return style()->subControlRect(QStyle::CC_GroupBox, &group, which, this);
  };
  QRect frame = part(QStyle::SC_GroupBoxFrame);
  if (!title().isEmpty()) frame.setTop(part(QStyle::SC_GroupBoxLabel).bottom() + kBelowTitle);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  painter.fillRect(frame, Mix(ink, ground, 3));
  PaintEdge(painter, frame, Mix(ink, ground, 20));
  group.subControls &= ~QStyle::SC_GroupBoxFrame;
  painter.drawComplexControl(QStyle::CC_GroupBox, group);
}

}  // namespace tarvok::desktop
