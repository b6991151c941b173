#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/table_undo.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** Columns of the port table that an inserted card fills, from 0. */
inline constexpr std::size_t kCardCell = 0;
inline constexpr std::size_t kChannelCell = 1;
inline constexpr std::size_t kTypeCell = 2;

/** The mixed card shows two labels: its channels up to the last digital one are digital. */
inline constexpr int kMixedCard = 4;
inline constexpr int kLastDigitalChannel = 4;
inline constexpr std::string_view kMixedSlicLabel = "SLIC 8 (4)";

/** What a grid shows for the type of a card at a channel; "" for a code that is none. */
std::string_view TypeLabel(std::int64_t code, std::int64_t channel);
/** The code of a label, 0 for none. */
int TypeCode(std::string_view label);

/** The labels in the order in which they are offered. */
std::vector<std::string> TypeLabels();
/** The cards that can be inserted, in the order in which they are offered. */
std::vector<std::string> CardNames();

/**
 * Puts all ports of a card into the rows of the port table, which may grow to all its rows. The rows of a
 * card that is there already are used first, from its first one on, and those that the new card does not need
 * are emptied; the other ports go into free rows. Other cards' rows stay. False, and nothing is changed, if
 * there is no room; `first` becomes the index of the first row written.
 */
bool InsertCard(std::vector<TableRow>& rows, std::string_view card, std::string_view card_name,
                std::size_t columns, std::size_t& first);
/** Index of the first row of a card, or of the first row without one for ""; the number of rows for none. */
std::size_t FindCard(const std::vector<TableRow>& rows, std::string_view card);

}  // namespace tarvok::editors
