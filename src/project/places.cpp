#include "project/places.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "sections/registry.h"
#include "sections/rows.h"

namespace tarvok::project {
namespace {

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
  for (const EditedElsewhere& fields : table.edited_elsewhere) {
    if (field >= fields.first && field <= fields.last) return fields.command;
  }
  return table.command;
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
