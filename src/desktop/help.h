#pragma once

#include <string_view>

#include <QWidget>

namespace tarvok {

/** Shows what a form is for, by its name (`frmConnect`); a name that is not known shows the general help. */
void ShowHelp(QWidget* parent, std::string_view form_name);

}  // namespace tarvok
