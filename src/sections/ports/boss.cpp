#include "sections/ports/boss.h"

#include "sections/ports/port_def.h"
#include "sections/rows.h"

namespace tarvok::sections {
namespace boss {
namespace {

constexpr Field kFields[] = {
    RowOf("BOSS", port_def::kTable, 3).ShownBy(port_def::kNumber),
    RowOf("SECRETARY", port_def::kTable, 3).ShownBy(port_def::kNumber),
};
constexpr int kNeeds[] = {kBoss};

}  // namespace

const Table kTable = {.section = "BOSS",
                      .row_name = "Boss and Secretary",
                      .command = "boss",
                      .rows = {1, kBossRows, 2},
                      .fields = kFields,
                      .needs = kNeeds};

namespace {

constexpr int kRecord = 4;

}  // namespace

}  // namespace boss

void EncodeBoss(const IniText& project, ImageWriter& image) {
  using namespace boss;
  EncodeRows(project, kTable, image, {kRecord, 0, kRecord}, [](RecordWriter& row) {
    row.MinusOneWord(0, kBoss);
    row.MinusOneWord(2, kSecretary);
  });
}

void DecodeBoss(const ImageReader& image, IniEdit& project) {
  using namespace boss;
  DecodeRows(image, project, kTable, kRecord, [](const ImageReader& record, RowText& row) {
    row.Add(record.RawPlusOneWord(0, 3)).Add(record.RawPlusOneWord(2, 3));
  });
}

}  // namespace tarvok::sections
