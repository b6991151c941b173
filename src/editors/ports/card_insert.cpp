#include "editors/ports/card_insert.h"

#include <algorithm>

#include "sections/ports/port_def.h"
#include "store/number_text.h"

namespace tarvok::editors {
namespace {

/** Codes in the order of the grid's list and of the insert list. */
constexpr int kLabelOrder[] = {8, kMixedCard, 3, 14, 5, 6, 12, 1, 13, 7, 9, 10, 2, 11};
constexpr int kInsertOrder[] = {kMixedCard, 3, 14, 8, 5, 6, 12, 1, 13, 7, 9, 10, 2, 11};

/** How many rows after a card are searched for remaining ports of the old card. */
constexpr std::size_t kRowsOfOldCard = 57;
/** Channels without a port between the digital and the other channels of the mixed card. */
constexpr int kChannelGap = 4;

const CardType* FindType(std::string_view insert_entry) {
  const auto* found = std::find_if(kCardTypes.begin(), kCardTypes.end(),
                                   [&](const CardType& type) { return type.insert_entry == insert_entry; });
  return found == kCardTypes.end() ? nullptr : found;
}

void Empty(TableRow& row) {
  for (std::string& cell : row.cells) cell.clear();
  row.unseen.clear();
}

/** Fills a row with the n-th port of a card, from 1, and empties all other cells. */
void PutPort(TableRow& row, std::string_view card, const CardType& type, int n) {
  const bool after_gap = type.code == kMixedCard && n > kLastDigitalChannel;
  const int channel = after_gap ? n + kChannelGap : n;
  Empty(row);
  row.cells[kCardCell] = card;
  row.cells[kChannelCell] = std::to_string(channel);
  row.cells[kTypeCell] = TypeLabel(type.code, channel);
}

}  // namespace

std::string_view TypeLabel(std::int64_t code, std::int64_t channel) {
  if (code == kMixedCard && channel > kLastDigitalChannel) return kMixedSlicLabel;
  const auto* found = std::find_if(kCardTypes.begin(), kCardTypes.end(),
                                   [&](const CardType& type) { return type.code == code; });
  return found == kCardTypes.end() ? std::string_view() : found->label();
}

int TypeCode(std::string_view label) {
  if (label == kMixedSlicLabel) return kMixedCard;
  const auto* found = std::find_if(kCardTypes.begin(), kCardTypes.end(),
                                   [&](const CardType& type) { return type.label() == label; });
  return found == kCardTypes.end() ? 0 : found->code;
}

std::vector<std::string> TypeLabels() {
  std::vector<std::string> labels;
  for (const int code : kLabelOrder) {
    labels.emplace_back(TypeLabel(code, 1));
    if (code == kMixedCard) labels.emplace_back(kMixedSlicLabel);
  }
  return labels;
}

std::vector<std::string> CardNames() {
  std::vector<std::string> names;
  for (const int code : kInsertOrder) {
    for (const CardType& type : kCardTypes) {
      if (type.code == code) names.emplace_back(type.insert_entry);
    }
  }
  return names;
}

std::size_t FindCard(const std::vector<TableRow>& rows, std::string_view card) {
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [&](const TableRow& row) { return row.cells[kCardCell] == card; });
  return static_cast<std::size_t>(found - rows.begin());
}

bool InsertCard(std::vector<TableRow>& rows, std::string_view card, std::string_view card_name,
                std::size_t columns, std::size_t& first) {
  const CardType* type = FindType(card_name);
  const std::size_t free = FindCard(rows, {});
  // The last row is never used. A card that replaces another one also needs room of its own.
  if (type == nullptr || kPortRows - (static_cast<int>(free) + 1) < type->ports) return false;

  std::vector<TableRow> made = rows;
  const auto row_at = [&](std::size_t at) -> TableRow& {
    while (made.size() <= at) made.push_back({.cells = std::vector<std::string>(columns)});
    return made[at];
  };
  const std::size_t old_first = FindCard(rows, card);
  std::size_t at = old_first;
  int put = 0;
  if (old_first < rows.size()) {
    for (; put < type->ports && at < kPortRows; ++at) {
      const std::string& there = row_at(at).cells[kCardCell];
      if (!there.empty() && there != card) break;
      PutPort(made[at], card, *type, ++put);
    }
    for (std::size_t i = at; i < std::min(at + kRowsOfOldCard, made.size()); ++i) {
      if (made[i].cells[kCardCell] == card) Empty(made[i]);
    }
  }
  first = old_first < rows.size() ? old_first : free;
  for (at = free; put < type->ports; ++at) {
    if (at >= kPortRows) return false;
    if (row_at(at).cells[kCardCell].empty()) PutPort(made[at], card, *type, ++put);
  }
  rows = std::move(made);
  return true;
}

}  // namespace tarvok::editors
