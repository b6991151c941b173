#pragma once

#include <QToolBar>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** The tool bar above the panes: a line parts it from them, and nothing moves it. Its style blends the bar's edges over the
 * ground, for which Qt wakes threads and waits. */
class ToolStrip : public QToolBar {
 public:
  using QToolBar::QToolBar;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvok::desktop
