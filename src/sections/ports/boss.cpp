#include "sections/ports/boss.h"

#include "sections/ports/raw_word.h"
#include "sections/ports/row_walk.h"
#include "sections/rows.h"

namespace tarvok {
namespace boss {
namespace {

constexpr tarvok::Field kFields[] = {
    RowOf("BOSS", "Port_Def", 1, 500, 3),
    RowOf("SECRETARY", "Port_Def", 1, 500, 3),
};

}  // namespace

const Table kTable = {
    .section = "BOSS", .row_name = "Boss and Secretary", .rows = {1, kBossRows, 2}, .fields = kFields};

}  // namespace boss

namespace {

using namespace boss;

constexpr int kRecord = 4;

}  // namespace

void EncodeBoss(const IniText& project, ImageWriter& image) {
  EncodeRows(project, image, kTable, kRecord, [](RecordWriter& row, bool) {
    row.MinusOneWord(0, kBoss);
    row.MinusOneWord(2, kSecretary);
  });
}

void DecodeBoss(const ImageReader& image, IniEdit& project) {
  for (int number = 1; number <= kBossRows; ++number) {
    const ImageReader record = image.Record(number - 1, kRecord);
    RowText row;
    row.Add(RawPlusOneWord(record, 0, 3));
    row.Add(RawPlusOneWord(record, 2, 3));
    project.Set(kTable.section, KeyOf(kTable, number), row.str());
  }
}

}  // namespace tarvok
