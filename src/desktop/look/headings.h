#pragma once

#include <QLabel>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** A label in larger, heavier letters; `scale` of the usual size. */
inline QLabel* MakeHeading(QLabel* label, double scale) {
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  return label;
}

/** A label that steps back behind the others, in light and dark. */
inline QLabel* MakeMuted(QLabel* label) {
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

}  // namespace tarvok::desktop
