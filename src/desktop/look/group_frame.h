#pragma once

#include <QGroupBox>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** A group of fields with its title. Its ground is painted as a plain rectangle: the style stretches a picture, for which Qt
 * wakes threads, and that takes longer than all that is in the group. */
class GroupFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvok::desktop
