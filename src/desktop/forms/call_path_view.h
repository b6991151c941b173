#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QScrollArea>

#include "desktop/uses.h"
#include "io/code_page.h"
#include "project/call_path.h"

namespace tarvok::desktop {

/** The path of a call from left to right, one box per step. A click on a box, or Return on the one chosen
 * with the arrow keys, calls `go` with its place. */
class CallPathView : public QScrollArea {
 public:
  CallPathView(const CodePage& page, std::function<void(const Place&)> go);

  void ShowPath(PathNode path);

 private:
  class Canvas;
  Canvas* canvas_;
};

}  // namespace tarvok::desktop
