#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editing/table_undo.h"
#include "editors/uses.h"

namespace tarvok::editors {

/** Columns of the port table, from 0, that an inserted card fills. */
inline constexpr std::size_t kCardCell = 0;
inline constexpr std::size_t kChannelCell = 1;
inline constexpr std::size_t kTypeCell = 2;

/** The mixed card has two labels: channels up to the last digital one are digital. */
inline constexpr int kMixedCard = 4;
inline constexpr int kLastDigitalChannel = 4;
inline constexpr std::string_view kMixedSlicLabel = "SLIC 8 (4)";

/** The grid's label for the type of a card at a channel; "" for an unknown code. */
std::string_view TypeLabel(std::int64_t code, std::int64_t channel);
/** The code of a label; 0 if unknown. */
int TypeCode(std::string_view label);

/** The labels in the order of the list. */
std::vector<std::string> TypeLabels();
/** The cards that can be inserted, in the order of the list. */
std::vector<std::string> CardNames();

/**
 * Inserts all ports of a card into the port table, adding rows if necessary. If the card exists, its rows are
 * reused, from the first one on, and emptied if the new card does not need them; the other ports go into free
 * rows. Rows of other cards stay. `first` becomes the index of the first row written. Returns false and
 * leaves `rows` unchanged if there is no room.
 */
bool InsertCard(std::vector<TableRow>& rows, std::string_view card, std::string_view card_name,
                std::size_t columns, std::size_t& first);
/** The index of the first row of a card, or of the first row without a card for ""; the number of rows if
 * none. */
std::size_t FindCard(const std::vector<TableRow>& rows, std::string_view card);

}  // namespace tarvok::editors
