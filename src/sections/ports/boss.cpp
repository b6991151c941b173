#include "sections/ports/boss.h"

#include "sections/ports/port_def.h"
#include "sections/record_layout.h"

namespace tarvok::sections {
namespace boss {
namespace {

constexpr auto kFields =
    FieldsOf({{kBoss, RowOf("BOSS", port_def::kTable, 3).ShownBy(port_def::kNumber)},
              {kSecretary, RowOf("SECRETARY", port_def::kTable, 3).ShownBy(port_def::kNumber)}});
constexpr int kNeeds[] = {kBoss};

constexpr RecordLayout kRecord({{0, kBoss, kMinusOneRawWord<3>}, {2, kSecretary, kMinusOneRawWord<3>}});

}  // namespace

const Table kTable = {.section = "BOSS",
                      .row_name = "Boss and Secretary",
                      .command = "boss",
                      .rows = {1, kBossRows, 2},
                      .fields = kFields,
                      .record = kRecord.items(),
                      .needs = kNeeds};

}  // namespace boss

void EncodeBoss(const IniText& project, ImageWriter& image) {
  using namespace boss;
  EncodeRows(project, kTable, image, kRecord.AllUnset(), kRecord);
}

void DecodeBoss(const ImageReader& image, IniEdit& project) {
  using namespace boss;
  DecodeRows(image, project, kTable, kRecord.size(), kRecord);
}

}  // namespace tarvok::sections
