#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "project/place.h"
#include "project/uses.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** Maps each byte of the project's code page to its case-folded form. */
using FoldTable = std::array<unsigned char, 256>;
/** Folds only the letters A to Z, which all code pages share. */
const FoldTable& AsciiFold();

/** A search hit. All texts are in the project's code page. */
struct Found {
  Place place;
  std::string row;    // as in "Port 012 (card 3, channel 4)"
  std::string field;  // its name; "" if the row itself was found
  std::string value;  // as shown to the user; of a row "" or its label
};

struct SearchResult {
  std::vector<Found> found;  // equal values first, then values that start with the text, then the rest
  bool more = false;         // there are more hits than were asked for
};

/**
 * Finds at most `most` values that contain the text, as stored or as shown to the user, and the rows with
 * that label. "3-4" finds everything that belongs to card 3, channel 4. On/off switches are not searched. An
 * empty text finds nothing.
 */
SearchResult SearchProject(const IniText& project, std::string_view text, std::size_t most,
                           const FoldTable& fold = AsciiFold());

}  // namespace tarvok::project
