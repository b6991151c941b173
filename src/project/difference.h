#pragma once

#include <string>
#include <vector>

#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** A difference between two projects, as text in the projects' code page. */
struct Difference {
  enum class Kind { kField, kOnlyInFirst, kOnlyInSecond, kMoved };

  Kind kind = Kind::kField;
  std::string row;     // as in "Port 012 (card 3, channel 4)"; of rows that moved together the first and the
                       // last; of an unknown key its section and name
  std::string field;   // "" for a whole row and for an unknown key
  std::string before;  // values as shown on screen; of a row in only one project its contents
  std::string after;   // of rows that moved: where they went
};

/** Shown for a value that is not set. */
inline constexpr std::string_view kShownBlank = "(blank)";
/** Shown for a secret value, and for a different one after it. */
inline constexpr std::string_view kShownSecret = "(set)";
inline constexpr std::string_view kShownOtherSecret = "(changed)";

/** Whether differences show secret values or only that they changed. */
enum class Secrets { kHidden, kShown };

/** All differences, in the order of a project's sections and rows; a table's moved rows come first. A moved
 * row is compared with itself, and references to it follow. Values with the same meaning do not differ, nor
 * do spellings of the header's tag. */
std::vector<Difference> CompareProjects(const IniText& first, const IniText& second,
                                        Secrets secrets = Secrets::kHidden);

}  // namespace tarvok::project
