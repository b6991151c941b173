#pragma once

#include <functional>
#include <string>

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include "desktop/desktop_parts.h"
#include "desktop/rack_view.h"

namespace tarvok {

/** The pane of an open project while no editor is shown: its rack, what it amounts to, how it connects. */
class OverviewPane : public QScrollArea {
 public:
  /** `open_transfer`: the button beside the connection. */
  OverviewPane(DesktopParts& parts, std::function<void()> open_transfer);

  /** Reads the open project afresh; one that went away meanwhile is told in its place. */
  void ShowProject();

 private:
  QWidget* MakeTiles();
  QWidget* MakeLegend();
  QWidget* MakeConnection(std::function<void()> open_transfer);

  DesktopParts& parts_;
  QLabel* name_ = nullptr;
  QLabel* folder_ = nullptr;
  QLabel* problem_ = nullptr;
  QLabel* rack_hint_ = nullptr;
  RackView* rack_ = nullptr;
  QLabel* ports_ = nullptr;
  QLabel* numbers_ = nullptr;
  QLabel* trunks_ = nullptr;
  QLabel* groups_ = nullptr;
  QLabel* connection_ = nullptr;
};

}  // namespace tarvok
