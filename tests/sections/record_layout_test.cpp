// The tables of bytes in the sections' headers.

#include <filesystem>
#include <iomanip>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "sections/registry.h"
#include "tests/floors.h"
#include "tests/source_file.h"

namespace tarvok::test {
namespace {

std::string AllSectionHeaders() {
  const std::string root = TARVOK_SOURCE_DIR;
  std::string text;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root + "/src/sections")) {
    if (entry.path().extension() == ".h") text += SourceFile(entry.path().string().substr(root.size()));
  }
  return text;
}

/** The lines of a table of bytes: offset, bytes, field, and how it is converted. */
std::string TableOfBytes(const Table& table) {
  std::ostringstream text;
  for (const RecordItem& item : table.record) {
    const std::string field(item.field == 0 ? "-"
                                            : table.fields[static_cast<std::size_t>(item.field) - 1].name);
    std::ostringstream line;
    line << " * " << std::setw(3) << item.at << std::setw(4) << item.rule.bytes << "  ";
    line << std::left << std::setw(14) << field << item.rule.words;
    text << line.str().substr(0, line.str().find_last_not_of(' ') + 1) << "\n";
  }
  return text.str();
}

TEST(RecordLayouts, AreTheTablesInTheHeaders) {
  const std::string headers = AllSectionHeaders();
  int layouts = 0;
  for (const Table* table : Tables()) {
    if (table->record.empty()) continue;
    const std::string bytes = " *  at bytes\n" + TableOfBytes(*table);
    const std::size_t found = headers.find(bytes + " *");
    ASSERT_NE(found, std::string::npos) << "no header has this table of " << table->section << "\n" << bytes;
    const char next = headers[found + bytes.size() + 2];
    EXPECT_TRUE(next == '\n' || next == '/') << "the table of " << table->section << " has more lines";
    ++layouts;
  }
  EXPECT_GT(layouts, 0);
}

}  // namespace
}  // namespace tarvok::test
