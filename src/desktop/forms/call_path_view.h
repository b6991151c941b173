#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QScrollArea>

#include "desktop/uses.h"
#include "io/code_page.h"
#include "project/call_path.h"

namespace tarvok::desktop {

/** The way of a call drawn from left to right: a box a step, each to click on, or to reach by the arrows and
 * open by Return. */
class CallPathView : public QScrollArea {
 public:
  CallPathView(const CodePage& page, std::function<void(const Place&)> go);

  void ShowPath(PathNode path);

 private:
  class Canvas;
  Canvas* canvas_;
};

}  // namespace tarvok::desktop
