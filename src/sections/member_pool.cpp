#include "sections/member_pool.h"

#include <algorithm>
#include <string>

#include "sections/records.h"

namespace tarvok::sections {
namespace {

constexpr int kWordBytes = 2;

/** Offset of the end of list `number`, from 1. One more is where the members start. */
int EndAt(int number) {
  return (number - 1) * kWordBytes;
}

int MemberAt(const Table& table, int index) {
  return EndAt(table.rows.last + 1) + index * kWordBytes;
}

}  // namespace

void EncodePool(const IniText& project, const Table& table, ImageWriter& image) {
  const int places = table.members.pool;
  image.Fill(MemberAt(table, 0), places * kWordBytes, kUnsetByte);
  int count = 0;
  for (int number = 1; number <= table.rows.last; ++number) {
    const std::string key = KeyOf(table, number);
    ForEachMember(RowValue(project, table, number), [&](std::string_view member) {
      ValueWriter value(image, table, key, member);
      if (count == places) {
        value.Fail(PoolFull(table.members));
        return;
      }
      value.MinusOneWord(MemberAt(table, count), Val(member));
      ++count;
    });
    image.Word(EndAt(number), count);
  }
}

int LastEnd(const ImageReader& image, const Table& table) {
  return image.RawWord(EndAt(table.rows.last));
}

void DecodePool(const ImageReader& image, IniEdit& project, const Table& table) {
  int next = 0;
  RowText members;
  for (int number = 1; number <= table.rows.last; ++number) {
    const int end = std::min(image.RawWord(EndAt(number)), table.members.pool);
    members.Clear();
    for (; next < end; ++next) {
      const std::string member = image.RawPlusOneWord(MemberAt(table, next), table.fields.front().width);
      if (member != kUnset) members.Add(member);
    }
    project.Set(table.section, KeyOf(table, number), members.str());
  }
}

}  // namespace tarvok::sections
