#pragma once

#include <string_view>

#include <QWidget>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Shows the help of a form by its name (`frmConnect`): general help for "", that of the editors for unknown
 * names. */
void ShowHelp(QWidget* parent, std::string_view form_name);

}  // namespace tarvok::desktop
