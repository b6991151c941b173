#include "sections/ports/hunt_group.h"

#include <algorithm>
#include <string>

#include "sections/ports/assign.h"
#include "sections/rows.h"

namespace tarvok::sections {
namespace hunt_group {
namespace {

constexpr Field kFields[] = {RowOf("Member", assign::kTable, 3)};

using hunt_group::kTable;

constexpr int kWord = 2;
constexpr int kPool = kHuntGroups * kWord;

int TotalAt(int group) {
  return (group - 1) * kWord;
}

int SlotAt(int position) {
  return kPool + (position - 1) * kWord;
}

}  // namespace

const Table kTable = {.section = "HuntGroup",
                      .row_name = "Hunt Group",
                      .command = "groupofhunt",
                      .rows = {1, kHuntGroups, 2},
                      .fields = kFields,
                      .repeats = true,
                      .members = {.pool = kHuntMembers},
                      .now = NowCounts::kMembers};

}  // namespace hunt_group

void EncodeHuntGroup(const IniText& project, ImageWriter& image) {
  using namespace hunt_group;
  int count = 0;
  for (int group = 1; group <= kHuntGroups; ++group) {
    const std::string key = KeyOf(kTable, group);
    ForEachMember(RowValue(project, kTable, group), [&](std::string_view member) {
      ValueWriter slot(image, kTable, key, member);
      if (count == kHuntMembers) {
        slot.Fail(PoolFull(kTable.members));
        return;
      }
      ++count;
      slot.MinusOneWord(SlotAt(count), Val(member));
    });
    image.Word(TotalAt(group), count);
  }
  image.Fill(SlotAt(count + 1), (kHuntMembers - count) * kWord, kUnsetByte);
}

void DecodeHuntGroup(const ImageReader& image, IniEdit& project) {
  using namespace hunt_group;
  StoreRowCounts(project, kTable, image.RawWord(TotalAt(kHuntGroups)));
  int position = 1;
  RowText members;
  for (int group = 1; group <= kHuntGroups; ++group) {
    const int last = std::min(image.RawWord(TotalAt(group)), kHuntMembers);
    members.Clear();
    for (; position <= last; ++position) {
      const std::string member = image.RawPlusOneWord(SlotAt(position), 3);
      if (member != kUnset) members.Add(member);
    }
    project.Set(kTable.section, KeyOf(kTable, group), members.str());
  }
}

}  // namespace tarvok::sections
