#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/window/main_window.h"

namespace tarvok::desktop {

/** The commands of the tree with their forms, in the order of their nodes: the editors, the transfer forms
 * and About, whose text ends with `system_file_line`. The parts and the window must outlive them. */
std::vector<Command> Commands(DesktopParts& parts, MainWindow& window,
                              const std::function<std::string()>& system_file_line);

}  // namespace tarvok::desktop
