#pragma once

#include <QGroupBox>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** A group of fields with a title. Its background is a plain rectangle: the style scales a picture, for which
 * Qt wakes threads, and that takes longer than painting everything in the group. */
class GroupFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvok::desktop
