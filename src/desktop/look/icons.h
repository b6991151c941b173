#pragma once

#include <QIcon>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** The program's own pictures: lines in the colour of the text, so that they follow light and dark and every scale. */
enum class Picture { kNewProject, kOpenProject, kCloseProject, kExit, kComputer, kMore, kClear };

QIcon IconOf(Picture picture);

}  // namespace tarvok::desktop
