#pragma once

#include <string>
#include <vector>

#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** An invalid value or a dangling reference: something that no editor and no load from an exchange writes.
 * All texts are in the project's code page. */
struct Finding {
  std::string section;
  std::string key;
  std::string field;  // the name shown to the user; "row" for the whole row
  std::string what;   // starts with the value, if there is one
};

/** All findings in a project, in the order of its sections and rows. */
std::vector<Finding> CheckProject(const IniText& project);

}  // namespace tarvok::project
