#include "project/places.h"

#include <algorithm>
#include <cstdint>
#include <string>

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
#include "sections/system/mini_bar.h"
#include "sections/system/pabx_mode.h"
#include "sections/system/pbx_ip.h"
#include "sections/system/run_script.h"
#include "sections/system/system_numbers.h"
#include "sections/system/system_times.h"
#include "sections/tables.h"

namespace tarvok::project {
namespace {

struct EditedBy {
  const Table* table;
  std::string_view command;  // key of the command
  int first_field = 0;       // 0: all fields that no other entry claims
  int last_field = 0;
};

/** A table that is not listed is edited like the first listed table of its section. */
constexpr EditedBy kEditedBy[] = {
    {&assign::kTable, "ext"},
    {&name::kTable, "ext"},
    {&port_def::kTable, "portdefine"},
    {&port_def::kTable, "callforward", 9, 15},
    {&port_def::kTable, "vmbox", 18, 22},
    {&port_config::kTable, "portconfig"},
    {&boss::kTable, "boss"},
    {&link_trunk::kTable, "linktrunk"},
    {&dial_phone::kTable, "dialphone"},
    {&account::kTable, "account"},
    {&hunt_group::kTable, "groupofhunt"},
    {&incoming_list::kTable, "incominglist"},
    {&tenan::kDayTable, "tenan"},
    {&route_map_digit::kTable, "routemap"},
    {&route_list::kTable, "route"},
    {&route::kTable, "route"},
    {&group_out::kTable, "groupout"},
    {&e1_map::kTable, "e1mapping"},
    {&e1_number::kTable, "e1numbering"},
    {&did_redirect::kTable, "didredirect"},
    {&class_digit::kBanTable, "digitcor"},
    {&class_group::kTable, "corgroup"},
    {&system_times::kHolidays, "systemconfig"},
    {&vm_call_back::kTable, "vmcallback"},
    {&pabx_mode::kTable, "pabxmode"},
    {&billing_mode::kTable, "billingmode"},
    {&billing_mode::kCountry, "billingmode"},
    {&mini_bar::kTable, "minibar"},
    {&run_script::kTable, "runscript"},
    {&tbl_route::kTable, "setroute"},
    {&pbx_ip::kAddress, "setip"},
    {&key_dss::kKeys, "setupkey"},
    {&key_dss::kDss, "setupkey"},
};

/** The row number of a key; -1 if the table has no such key. */
int RowOfKey(const Table& table, std::string_view key) {
  const RowKeys& rows = table.rows;
  if (key.size() <= rows.prefix.size() + rows.suffix.size()) return -1;
  const std::int64_t number = Val(key.substr(rows.prefix.size()));
  const int last = std::max(rows.last, rows.kept);
  if (number < rows.first || number > last) return -1;
  return SameName(KeyOf(table, static_cast<int>(number)), key) ? static_cast<int>(number) : -1;
}

int FieldOfName(const Table& table, std::string_view name) {
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const Field& field = table.fields[i];
    const auto is_called = [&](const Meaning& meaning) { return meaning.field->name == name; };
    const bool by_meaning = std::any_of(field.meanings.begin(), field.meanings.end(), is_called);
    if (field.name == name || by_meaning) return static_cast<int>(i) + 1;
  }
  if (!table.repeats || table.fields.empty()) return 0;
  const std::string_view member = table.fields.back().name;  // "Member 12"
  if (!name.starts_with(member) || name.size() <= member.size()) return 0;
  return static_cast<int>(std::clamp<std::int64_t>(Val(name.substr(member.size())), 0, kMaxIniValue));
}

}  // namespace

std::string_view CommandOf(const Table& table, int field) {
  const EditedBy* found = nullptr;
  for (const EditedBy& entry : kEditedBy) {
    const bool claims = entry.table == &table && entry.first_field > 0 && field >= entry.first_field &&
                        field <= entry.last_field;
    if (claims) return entry.command;
    const bool closer = found == nullptr || found->table != &table;
    if (entry.first_field > 0 || !closer) continue;
    if (entry.table == &table || (found == nullptr && entry.table->section == table.section)) found = &entry;
  }
  return found == nullptr ? std::string_view() : found->command;
}

std::optional<StatedRow> FindRow(std::string_view section, std::string_view key) {
  for (const Table* table : Tables()) {
    if (!SameName(table->section, section)) continue;
    if (table->single()) {
      if (SameName(table->key, key)) return StatedRow{table, 0};
    } else if (const int row = RowOfKey(*table, key); row >= 0) {
      return StatedRow{table, row};
    }
  }
  return std::nullopt;
}

Place PlaceOf(std::string_view section, std::string_view key, std::string_view field_name) {
  Place place{std::string(section), std::string(key), 0, 0};
  if (const std::optional<StatedRow> row = FindRow(section, key)) {
    place.row = row->row;
    place.field = FieldOfName(*row->table, field_name);
  }
  return place;
}

std::string_view CommandOf(const Place& place) {
  if (const std::optional<StatedRow> row = FindRow(place.section, place.key)) {
    return CommandOf(*row->table, place.field);
  }
  for (const Table* table : Tables()) {
    if (SameName(table->section, place.section)) return CommandOf(*table);
  }
  return {};
}

}  // namespace tarvok::project
