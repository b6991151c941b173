#pragma once

#include <optional>
#include <string>

#include <QWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"

namespace tarvok::desktop {

/**
 * Copies the open project to a file that the user chooses; an existing one is kept in its history first. Returns
 * its path, or nothing if the user cancels or the copy fails, which is shown. `title` is that of the dialog.
 */
std::optional<std::string> CopyProject(DesktopParts& parts, const QString& title, QWidget* parent);

/** Shows the differences between the open project and another one that the user chooses. */
void CompareWithProject(DesktopParts& parts, QWidget* parent);

}  // namespace tarvok::desktop
