#pragma once

#include <string>

#include "project/uses.h"

namespace tarvok::project {

/** A place in a project, such as that of a finding, a reference or a search hit. */
struct Place {
  std::string section;  // project section
  std::string key;      // of the row
  int row = 0;          // number in that key; 0 for a single key
  int field = 0;        // from 1; 0 for the row as a whole

  bool operator==(const Place&) const = default;
};

}  // namespace tarvok::project
