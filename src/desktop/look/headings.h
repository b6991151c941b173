#pragma once

#include <QLabel>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Makes the text of a label bold and `scale` times as large; returns the label. */
inline QLabel* MakeHeading(QLabel* label, double scale) {
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  return label;
}

/** Makes the text of a label muted, with light and dark colours; returns the label. */
inline QLabel* MakeMuted(QLabel* label) {
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

}  // namespace tarvok::desktop
