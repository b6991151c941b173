#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "desktop/uses.h"
#include "store/ini_text.h"

namespace tarvok::desktop {

/** The number of card slots in the exchange's rack. */
inline constexpr int kSlots = 16;

/** The kinds of cards that the rack distinguishes. */
enum class CardFamily { kSlic, kDigital, kTrunk, kEAndM, kE1, kVoiceMail };

std::string_view FamilyName(CardFamily family);

/** A card in its slot. A port is used if it has a number or belongs to a group out. */
struct CardSummary {
  std::string_view label;  // name of the card type; "" for an empty slot
  CardFamily family = CardFamily::kSlic;
  std::vector<bool> used;  // one entry per port, in the order of the rows

  bool empty() const { return used.empty(); }
  int ports() const { return static_cast<int>(used.size()); }
  int ports_used() const;
};

/** The totals of a project, counted from its rows. */
struct ProjectSummary {
  std::array<CardSummary, kSlots> slots;
  int ports = 0;
  int ports_used = 0;
  int numbers = 0;
  int trunks = 0;       // ports of trunk, E & M and E1 cards
  int groups_out = 0;   // with at least one member
  int hunt_groups = 0;  // with at least one member
};

/** Counts the rows of a project. Invalid rows (a slot that does not exist, an unknown card) are skipped. */
ProjectSummary Summarize(const IniText& project);

}  // namespace tarvok::desktop
