#include "sections/routing/tbl_route.h"

#include <algorithm>
#include <string>

#include "sections/records.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace tbl_route {
namespace {

constexpr Field kPidFields[] = {Number("PBX ID", 0, 14)};
/** 0 means unset; a load writes it. */
constexpr Field kGatewayFields[] = {Number("Gateway", 1, 15).UnsetAs("0")};
/** Card 0 means no card; a load writes it for a missing destination. */
constexpr auto kFields = FieldsOf(
    {{kCard, Number("Card ID", 1, 15).UnsetAs("0")}, {kDevice, Number("Device", 0, 1).UnsetAs("0")}});

constexpr int kNoPbxId = 15;
constexpr int kNoGateway = 16;
constexpr int kNoDestination = 0x10;
constexpr int kHalf = 16;

void EncodeGateway(RecordWriter& gateway, std::string_view stored) {
  const std::int64_t number = Val(stored);
  gateway.Checked(1, 1, stored == "0" || number > kUnsetByte ? 1 : number);
}

void EncodeDestination(RecordWriter& row) {
  for (const int field : {kCard, kDevice}) {
    if (row.Value(field) >= kHalf) row.TooLarge(field);
    row.Checked(0, field, std::min<std::int64_t>(row.Value(field), kHalf));
  }
  row.Checked(0, kDevice, row.Value(kDevice) * kHalf + row.Value(kCard));
}

}  // namespace

const Table kPidTable = {.section = "TblRoute",
                         .row_name = "PBX Link Table",
                         .command = "setroute",
                         .key = "PID",
                         .fields = kPidFields};
const Table kGatewayTable = {.section = "TblRoute",
                             .row_name = "PBX Link Table",
                             .command = "setroute",
                             .key = "GW",
                             .fields = kGatewayFields};
const Table kTable = {.section = "TblRoute",
                      .row_name = "PBX Link",
                      .command = "setroute",
                      .rows = {1, kLinkRows, 2},
                      .fields = kFields,
                      .missing_differs = true};

}  // namespace tbl_route

void EncodeTblRoute(const IniText& project, ImageWriter& image) {
  using namespace tbl_route;
  RecordWriter(image, 0, kPidTable, kPidTable.key, KeyValue(project, kPidTable)).Plain(0, 1, 0);
  const std::string_view stored = KeyValue(project, kGatewayTable);
  RecordWriter gateway(image, 0, kGatewayTable, kGatewayTable.key, stored);
  EncodeGateway(gateway, stored);
  for (int number = 1; number <= kLinkRows; ++number) {
    const std::string key = KeyOf(kTable, number);
    const std::string_view value = RowValue(project, kTable, number);
    RecordWriter row(image, 1 + number, kTable, key, value);
    if (value.empty()) {
      row.Byte(0, kNoDestination);
    } else {
      EncodeDestination(row);
    }
  }
}

void DecodeTblRoute(const ImageReader& image, IniEdit& project) {
  using namespace tbl_route;
  const int pbx_id = image.Byte(0);
  const int gateway = image.Byte(1);
  project.Set(kPidTable.section, kPidTable.key, std::to_string(pbx_id < kNoPbxId ? pbx_id : 0));
  project.Set(kGatewayTable.section, kGatewayTable.key, std::to_string(gateway < kNoGateway ? gateway : 0));
  RowText row;
  for (int number = 1; number <= kLinkRows; ++number) {
    const auto byte = static_cast<std::uint64_t>(image.Byte(1 + number));
    row.Clear().Add(DecToHex(byte % kHalf)).Add(DecToHex(byte / kHalf));
    project.Set(kTable.section, KeyOf(kTable, number), row.str());
  }
}

}  // namespace tarvok::sections
