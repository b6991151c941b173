#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "project/place.h"
#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** For each byte of the project's code page the byte that stands for it when case does not matter. */
using FoldTable = std::array<unsigned char, 256>;
/** Folds the letters A to Z alone, which all code pages share. */
const FoldTable& AsciiFold();

/** Where a search found something. All texts are bytes of the project's code page. */
struct Found {
  Place place;
  std::string row;    // as people know it: "Port 012 (card 3, channel 4)"
  std::string field;  // as the user knows it; "" if the row itself was found
  std::string value;  // as people see it; of a row "" or its label
};

struct SearchResult {
  std::vector<Found> found;  // what is equal to the text first, then what begins with it, then the rest
  bool more = false;         // there was more than was asked for
};

/**
 * All places of a project whose value, as it is stored or as people see it, holds the text, and the rows that
 * are called by it. "3-4" finds what belongs to card 3, channel 4. Switches that are on or off are not
 * searched. At most `most` places; the empty text finds nothing.
 */
SearchResult SearchProject(const IniText& project, std::string_view text, std::size_t most,
                           const FoldTable& fold = AsciiFold());

}  // namespace tarvok::project
