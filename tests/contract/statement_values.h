#pragma once

#include <string>
#include <vector>

#include "sections/table.h"
#include "store/ini_text.h"
#include "tests/floors.h"

namespace tarvok::test {

/** The fullest and the smallest value that an editor can write for a statement. */
struct ValuePair {
  std::string most;
  std::string least;
};

ValuePair ValuesOf(const Field& field);

/** A row of the fullest values. Field `least_at`, from 1 (in a list: the position of a member), has the
 * smallest value instead. */
std::string FullRow(const Table& table, int least_at = 0);

/** The number of fields that FullRow writes. */
int FieldsOfRow(const Table& table);

/** A project with the given rows of the table, all with the same value. */
std::string ProjectOf(const Table& table, const std::vector<int>& numbers, const std::string& value);

/** The project's text with a new value for a key, or for one field of it if `field` (from 1) is not 0. */
std::string WithValue(const IniText& project, const std::string& section, const std::string& key, int field,
                      const std::string& value);

}  // namespace tarvok::test
