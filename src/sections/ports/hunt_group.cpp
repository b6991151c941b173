#include "sections/ports/hunt_group.h"

#include <algorithm>
#include <string>

#include "sections/ports/raw_word.h"
#include "sections/ports/value_writer.h"
#include "sections/rows.h"

namespace tarvok {
namespace hunt_group {
namespace {

constexpr Field kFields[] = {RowOf("Member", "Assign", 1, 500, 3)};

}  // namespace

const Table kTable = {.section = "HuntGroup",
                      .row_name = "Hunt Group",
                      .rows = {1, kHuntGroups, 2},
                      .fields = kFields,
                      .repeats = true};

}  // namespace hunt_group

namespace {

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

void EncodeHuntGroup(const IniText& project, ImageWriter& image) {
  int count = 0;
  for (int group = 1; group <= kHuntGroups; ++group) {
    const std::string key = KeyOf(kTable, group);
    ForEachField(RowValue(project, kTable, group), [&](std::string_view member) {
      const std::int64_t number = Val(member);
      if (number < 1) return;
      ValueWriter slot(image, kTable, key, member);
      if (count == kHuntMembers) {
        slot.Fail("has no place in the pool that all groups share");
        return;
      }
      ++count;
      slot.MinusOneWord(SlotAt(count), number);
    });
    image.Word(TotalAt(group), count);
  }
  image.Fill(SlotAt(count + 1), (kHuntMembers - count) * kWord, 255);
}

void DecodeHuntGroup(const ImageReader& image, IniEdit& project) {
  StoreRowCounts(project, kTable, kHuntGroups, RawWord(image, TotalAt(kHuntGroups)));
  int position = 1;
  for (int group = 1; group <= kHuntGroups; ++group) {
    const int last = std::min(RawWord(image, TotalAt(group)), kHuntMembers);
    RowText members;
    for (; position <= last; ++position) {
      const std::string member = RawPlusOneWord(image, SlotAt(position), 3);
      if (member != kUnset) members.Add(member);
    }
    project.Set(kTable.section, KeyOf(kTable, group), members.str());
  }
}

}  // namespace tarvok
