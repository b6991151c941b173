#include "sections/routing/class_group.h"

#include <string>

#include "sections/records.h"
#include "sections/routing/class_digit.h"

namespace tarvok::sections {
namespace class_group {
namespace {

constexpr Field kFields[] = {RowOf("COR Number", class_digit::kBanTable, 2)};

constexpr std::string_view kGroupFull = "has no place in its group any more";

}  // namespace

const Table kTable = {.section = "COR_Group",
                      .row_name = "COR Group",
                      .command = "corgroup",
                      .rows = {1, kClassGroups, 2},
                      .fields = kFields,
                      .repeats = true,
                      .members = {.most = kClassesOfGroup},
                      .label = "COR Group"};

}  // namespace class_group

void EncodeClassGroup(const IniText& project, ImageWriter& image) {
  using namespace class_group;
  image.Fill(0, image.size(), kUnsetByte);
  for (int group = 1; group <= kClassGroups; ++group) {
    const std::string key = KeyOf(kTable, group);
    int used = 0;
    ForEachMember(RowValue(project, kTable, group), [&](std::string_view member) {
      if (used == kClassesOfGroup) {
        ValueWriter(image, kTable, key, member).Fail(kGroupFull);
        return;
      }
      const int at = (group - 1) * kClassesOfGroup + used;
      RecordWriter(image, at, kTable, key, member).MinusOne(0, kClass);
      ++used;
    });
  }
}

void DecodeClassGroup(const ImageReader& image, IniEdit& project) {
  using namespace class_group;
  StoreMax(project, kTable);
  RowText classes;
  for (int group = 1; group <= kClassGroups; ++group) {
    const ImageReader record = image.Record(group - 1, kClassesOfGroup);
    classes.Clear();
    for (int slot = 0; slot < kClassesOfGroup; ++slot) {
      if (record.Byte(slot) != kUnsetByte) classes.Add(record.PlusOne(slot, 2));
    }
    project.Set(kTable.section, KeyOf(kTable, group), classes.str());
  }
}

}  // namespace tarvok::sections
