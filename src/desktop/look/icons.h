#pragma once

#include <QIcon>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** The program's own pictures: lines in the colour of the text, for light and dark colours and every
 * scale. */
enum class Picture { kNewProject, kOpenProject, kCloseProject, kExit, kComputer, kMore, kClear };

QIcon IconOf(Picture picture);

}  // namespace tarvok::desktop
