#include "sections/routing/group_out.h"

#include <algorithm>
#include <string>

#include "sections/ports/port_def.h"
#include "sections/rows.h"

namespace tarvok::sections {
namespace group_out {
namespace {

/** The card types with outside lines: TRUNK, E & M and E1. */
constexpr std::string_view kLineTypes[] = {"2", "5", "6", "9", "10", "11"};
constexpr Field kFields[] = {RowOf("Member", port_def::kTable, 3).Only({port_def::kType, kLineTypes})};
constexpr std::string_view kMaxMembersKey = "Max_Group_Out";
constexpr std::string_view kCounts[] = {kMaxKey, kMaxMembersKey, kNowKey};
constexpr Unique kUnique[] = {{{}, "port"}};

constexpr int kWord = 2;
constexpr int kPoolAt = kGroupsOut * kWord;

}  // namespace

const Table kTable = {.section = "Group_Out",
                      .row_name = "Group Out",
                      .command = "groupout",
                      .rows = {1, kGroupsOut, 2},
                      .fields = kFields,
                      .repeats = true,
                      .members = {.pool = kGroupOutMembers},
                      .label = "Group Out",
                      .unique = kUnique,
                      .now = NowCounts::kMembers,
                      .counts = kCounts};

}  // namespace group_out

void EncodeGroupOut(const IniText& project, ImageWriter& image) {
  using namespace group_out;
  image.Fill(kPoolAt, kGroupOutMembers * kWord, kUnsetByte);
  int count = 0;
  for (int group = 1; group <= kGroupsOut; ++group) {
    const std::string key = KeyOf(kTable, group);
    ForEachMember(RowValue(project, kTable, group), [&](std::string_view member) {
      ValueWriter slot(image, kTable, key, member);
      if (count == kGroupOutMembers) {
        slot.Fail(PoolFull(kTable.members));
        return;
      }
      slot.MinusOneWord(kPoolAt + kWord * count, Val(member));
      ++count;
    });
    image.Word((group - 1) * kWord, count);
  }
}

void DecodeGroupOut(const ImageReader& image, IniEdit& project) {
  using namespace group_out;
  const int total = image.RawWord((kGroupsOut - 1) * kWord);
  const bool no_groups = total == kUnsetWord;
  StoreMax(project, kTable);
  project.Set(kTable.section, kMaxMembersKey, std::to_string(kGroupOutMembers));
  project.Set(kTable.section, kNowKey, std::to_string(no_groups ? 0 : total));
  int next = 0;
  RowText members;
  for (int group = 1; group <= kGroupsOut; ++group) {
    const int end = no_groups ? 0 : std::min(image.RawWord((group - 1) * kWord), kGroupOutMembers);
    members.Clear();
    for (; next < end; ++next) {
      const std::string port = image.RawPlusOneWord(kPoolAt + next * kWord, 3);
      if (port != kUnset) members.Add(port);
    }
    project.Set(kTable.section, KeyOf(kTable, group), members.str());
  }
}

}  // namespace tarvok::sections
