#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sections/section.h"
#include "sections/uses.h"

namespace tarvok::sections {

/** All sections that have a number, in its order. Send, load, compare, the command line and the practice
 * exchange use this list. */
std::span<const Section* const> Sections();
/** All tables, in the order of a project's sections. Checks, differences and searches go through this list.
 * The header section is not in it. */
std::span<const Table* const> Tables();

/** Returns nullptr if there is no such section. */
const Section* FindSection(int number);
/** The section's size in bytes at that version, or 0 if there is no such section or layout. */
int SizeAt(int number, int version, Direction direction);

/** The sections that a send to this version includes, in order. A section that is sent twice is listed
 * twice. */
std::vector<const Section*> SendPlan(int version);
/** The sections that a load from this version requests, in order. */
std::vector<const Section*> ReadPlan(int version);

/** One line for each list that decoders made longer than a project value can be. An exchange's pools have
 * room for such lists. */
std::vector<std::string> TooLongLists(const IniEdit& project);

/** The time, 6 bytes, which is sent before the first section. It is not a section itself. */
inline constexpr std::string_view kTimeProgress = "Sending Time...";
inline constexpr std::string_view kTimeFailed = "Send Time failed (RE)";
inline constexpr int kTimeSize = 6;
inline constexpr int kTimeBar = 1;
/** The end of the progress bar when a whole configuration is transferred: the highest section number. */
inline constexpr int kBarEnd = 46;

/** Numbers of the sections that hold new level passwords, level 1 first, three bytes each. */
inline constexpr std::array<int, 3> kPasswordSections = {29, 30, 31};
inline constexpr int kPasswordSize = 3;

}  // namespace tarvok::sections
