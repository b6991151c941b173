#pragma once

#include <string_view>

#include <QWidget>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Shows what a form is for, by its name (`frmConnect`); "" shows the general help, any other
 * name that of the editors. */
void ShowHelp(QWidget* parent, std::string_view form_name);

}  // namespace tarvok::desktop
