#pragma once

#include <QToolBar>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** The tool bar above the panes, fixed, with a line below it. It is painted here because the style blends its
 * edges with the background, for which Qt wakes threads and waits. */
class ToolStrip : public QToolBar {
 public:
  using QToolBar::QToolBar;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvok::desktop
