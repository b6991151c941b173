#include "tests/contract/statement_values.h"

#include <algorithm>
#include <map>

#include "sections/ports/account.h"
#include "sections/ports/assign.h"
#include "sections/ports/boss.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/key_dss.h"
#include "sections/ports/name.h"
#include "sections/ports/number_tables.h"
#include "sections/ports/port_config.h"
#include "sections/ports/port_def.h"
#include "sections/ports/vm_call_back.h"
#include "sections/routing/class_digit.h"
#include "sections/routing/class_group.h"
#include "sections/routing/did_redirect.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/e1_number.h"
#include "sections/routing/group_out.h"
#include "sections/routing/incoming_list.h"
#include "sections/routing/route.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"
#include "sections/routing/tbl_route.h"
#include "sections/routing/tenan.h"
#include "sections/rows.h"
#include "sections/system/billing_mode.h"
#include "sections/system/pabx_mode.h"
#include "sections/system/pbx_ip.h"
#include "sections/system/run_script.h"
#include "sections/system/system_numbers.h"
#include "sections/system/system_times.h"
#include "store/field_list.h"
#include "store/ini_edit.h"
#include "tests/floors.h"

namespace tarvok::test {

ValuePair ValuesOf(const Field& field) {
  const auto length = static_cast<std::size_t>(field.high);
  const FieldKind kind = field.kind;
  if (field.decided_by > 0) return {"20", "1"};
  if (kind == FieldKind::kNumber) return {Padded(field.high, field.width), Padded(field.low, field.width)};
  if (kind == FieldKind::kRow) {
    const RowKeys& rows = field.points_at->rows;
    return {Padded(rows.last - rows.base, field.width), Padded(rows.first - rows.base, field.width)};
  }
  if (kind == FieldKind::kHex) return {"FE", "0"};
  // Charge Expand has only one byte, and 655.35 is sent as 0 in some places.
  if (kind == FieldKind::kAmount)
    return {field.name == "Charge Expand" ? "255" : FormatHundredths(field.high - 1), "0"};
  if (kind == FieldKind::kDigits) return {std::string(std::min<std::size_t>(length, 20), '9'), "1"};
  if (kind == FieldKind::kText) return {std::string(std::min<std::size_t>(length, 20), 'x'), "y"};
  if (kind == FieldKind::kTime) return {"2359", "1001"};
  if (kind == FieldKind::kFlag) return {"1", "0"};
  if (kind == FieldKind::kColumns) return {std::string(length, '1'), std::string(length, '0')};
  if (kind == FieldKind::kCoded) return {"EX999999", "TE1"};
  const std::string_view other = field.choices.size() > 1 ? field.choices.back().stored : kUnset;
  return {std::string(field.choices.front().stored), std::string(other)};
}

int FieldsOfRow(const Table& table) {
  if (!table.repeats) return static_cast<int>(table.fields.size());
  return table.members.most > 0 && !table.members.packed ? table.members.most : 3;
}

std::string FullRow(const Table& table, int least_at) {
  std::string row;
  for (int n = 1; n <= FieldsOfRow(table); ++n) {
    const ValuePair values = ValuesOf(table.fields[table.repeats ? 0 : static_cast<std::size_t>(n) - 1]);
    row.append(n > 1 ? "|" : "").append(n == least_at ? values.least : values.most);
  }
  return row;
}

std::string ProjectOf(const Table& table, const std::vector<int>& numbers, const std::string& value) {
  std::string project = "[" + std::string(table.section) + "]\nNow=" + std::to_string(table.rows.last) + "\n";
  for (const int number : numbers) project += KeyOf(table, number) + "=" + value + "\n";
  return project;
}

std::string WithValue(const IniText& project, const std::string& section, const std::string& key, int field,
                      const std::string& value) {
  IniEdit edit(project);
  edit.Set(section, key, field == 0 ? value : SetField(edit.Get(section, key), field, value));
  return edit.Bytes();
}

std::vector<const Table*> TablesOf(int section) {
  static const std::map<int, std::vector<const Table*>> tables = {
      {1, {&port_config::kTable}},
      {2, {&pabx_mode::kTable}},
      {3, {&billing_mode::kTable, &billing_mode::kCountry}},
      {4, {&port_def::kTable}},
      {5, {&class_digit::kBanTable}},
      {6, {&class_digit::kAllowTable}},
      {7, {&class_group::kTable}},
      {8, {&route_map_digit::kTable}},
      {9, {&route_list::kTable}},
      {10, {&route::kTable}},
      {11, {&group_out::kTable}},
      {12, {&tenan::kDayTable, &tenan::kNightTable, &tenan::kDayHighTable, &tenan::kNightHighTable}},
      {13, {&assign::kTable}},
      {14, {&name::kTable}},
      {15, {&hunt_group::kTable}},
      {16, {&incoming_list::kTable}},
      {17, {&account::kTable}},
      {18, {&e1_map::kTable}},
      {19, {&e1_number::kTable}},
      {20, {&did_redirect::kTable}},
      {21, {&system_numbers::kVoiceMail}},
      {26, {&system_times::kHolidays}},
      {27, {&key_dss::kKeys, &key_dss::kDss}},
      {33, {&run_script::kTable}},
      {37, {&tbl_route::kPidTable, &tbl_route::kGatewayTable, &tbl_route::kTable}},
      {38, {&dial_phone::kTable}},
      {39, {&link_trunk::kTable}},
      {40, {&system_numbers::kMusicCard, &system_numbers::kMusicPort}},
      {41, {&vm_call_back::kTable}},
      {42, {&port_config::kTable}},
      {43, {&route_map_digit::kTable}},
      {44, {&pbx_ip::kAddress, &pbx_ip::kMac}},
      {45, {&boss::kTable}},
      {46, {&system_numbers::kRecord}},
  };
  if (section == 24 || section == 25) {
    std::vector<const Table*> weekdays;
    for (const Table& weekday : system_times::kWeekdayTables) weekdays.push_back(&weekday);
    return weekdays;
  }
  const auto found = tables.find(section);
  return found == tables.end() ? std::vector<const Table*>{} : found->second;
}

}  // namespace tarvok::test
