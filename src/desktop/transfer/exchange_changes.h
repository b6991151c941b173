#pragma once

#include <string>

#include <QWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "store/connection_settings.h"

namespace tarvok::desktop {

/** The text of a project without what a send of the whole configuration does not carry: the header and the
 * sections that are sent alone. */
std::string SentPart(const IniText& project);

/** Shows what a send of the open project would change in the exchange, compared with what was last sent to or
 * loaded from it. */
void ShowWhatWillChange(DesktopParts& parts, const ConnectionSettings& connection, QWidget* parent);

}  // namespace tarvok::desktop
