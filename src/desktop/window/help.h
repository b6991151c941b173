#pragma once

#include <string_view>

#include <QWidget>

namespace tarvok {

/** Shows what a form is for, by its name (`frmConnect`); "" shows the general help, any other
 * name that of the editors. */
void ShowHelp(QWidget* parent, std::string_view form_name);

}  // namespace tarvok
