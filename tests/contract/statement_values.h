#pragma once

#include <string>
#include <vector>

#include "sections/field.h"
#include "store/ini_text.h"
#include "tests/floors.h"

namespace tarvok::test {

/** The fullest and the slightest value that a statement lets an editor write. */
struct ValuePair {
  std::string most;
  std::string least;
};

ValuePair ValuesOf(const Field& field);

/** A row of the fullest values; `least_at` is the field, from 1, that has the slightest instead. In a list
 * that is the place of a member. */
std::string FullRow(const Table& table, int least_at = 0);

/** How many fields FullRow writes. */
int FieldsOfRow(const Table& table);

/** A project of rows `numbers` of the table, each with the value. */
std::string ProjectOf(const Table& table, const std::vector<int>& numbers, const std::string& value);

/** The project's text with another value of a key; with a field, from 1, of that field alone. */
std::string WithValue(const IniText& project, const std::string& section, const std::string& key, int field,
                      const std::string& value);

/** The tables whose keys the coders of a section read and write. */
std::vector<const Table*> TablesOf(int section);

}  // namespace tarvok::test
