#pragma once

#include <string>
#include <vector>

#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** Something in a project that no editor and no load from an exchange could have written, or that points
 * nowhere. All texts are bytes of the project's code page. */
struct Finding {
  std::string section;
  std::string key;
  std::string field;  // as the user knows it; "row" for the row as a whole
  std::string what;   // begins with the value
};

/** All findings in a project, in the order of its sections and rows. */
std::vector<Finding> CheckProject(const IniText& project);

}  // namespace tarvok::project
