#pragma once

#include <string>
#include <vector>

#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** What differs between two projects, in words. All texts are bytes of the projects' code page. */
struct Difference {
  enum class Kind { kField, kOnlyInFirst, kOnlyInSecond, kMoved };

  Kind kind = Kind::kField;
  std::string row;    // as people know it: "Port 012 (card 3, channel 4)"; a key that no statement knows: its
                      // section and name; of rows that moved together the first and the last
  std::string field;  // as people know it; "" for a row as a whole and for a key that no statement knows
  std::string before;  // values as shown on screen; of a row that only one project has what stands in it
  std::string after;   // of rows that moved where they went, in words
};

/** What a value that is not set looks like. */
inline constexpr std::string_view kShownBlank = "(blank)";
/** A secret value, and after it another one. */
inline constexpr std::string_view kShownSecret = "(set)";
inline constexpr std::string_view kShownOtherSecret = "(changed)";

/** Whether differences show the values of secret fields, or only that they changed. */
enum class Secrets { kHidden, kShown };

/** All differences, in the order of a project's sections and rows, a table's rows that moved in front. A row that
 * stands elsewhere is compared with itself, and what refers to it follows it. Values that mean the same do not differ;
 * nor do the spellings of the header's tag. */
std::vector<Difference> CompareProjects(const IniText& first, const IniText& second,
                                        Secrets secrets = Secrets::kHidden);

}  // namespace tarvok::project
