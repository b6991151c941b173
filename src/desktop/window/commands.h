#pragma once

#include <vector>

#include "desktop/window/main_window.h"

namespace tarvok::desktop {

/** The commands of the tree with their forms, in the order of their nodes: the editors, the transfer forms
 * and About. The parts and the window must outlive them. */
std::vector<Command> Commands(DesktopParts& parts, MainWindow& window);

}  // namespace tarvok::desktop
