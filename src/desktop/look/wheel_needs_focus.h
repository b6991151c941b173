#pragma once

#include <QEvent>
#include <QWidget>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Keeps the mouse wheel from changing the value of a widget without the focus, which would happen by
 * accident while the user scrolls a page. The page gets the wheel event instead. */
class WheelNeedsFocus : public QObject {
 public:
  static void Set(QWidget* widget) {
    widget->setFocusPolicy(Qt::StrongFocus);
    widget->installEventFilter(new WheelNeedsFocus(widget));
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
    event->ignore();
    return true;
  }

 private:
  using QObject::QObject;
};

}  // namespace tarvok::desktop
