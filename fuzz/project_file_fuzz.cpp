// Any bytes as a project file: reading never fails, and a change keeps every other line.

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/demand.h"
#include "store/ini_edit.h"
#include "tests/floors.h"

namespace {

/** The bytes before the first section, and all lines of all sections. */
std::vector<std::string> LinesOf(const tarvok::store::IniText& text) {
  std::vector<std::string> lines = {std::string(text.head())};
  for (std::int32_t section = 0; section < text.section_count(); ++section) {
    for (const tarvok::store::IniText::Line& line : text.lines(section)) lines.emplace_back(line.text);
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  const IniText text(std::string(reinterpret_cast<const char*>(data), size));
  const std::vector<std::string> lines = LinesOf(text);
  std::string joined;
  for (const std::string& line : lines) joined += line;
  Demand(joined == text.bytes());

  IniEdit edit(text);
  Demand(edit.Bytes() == text.bytes());
  edit.Set("Port_Def", "001", "1|2|3");
  edit.DeleteKey("Assign", "001");
  const IniText changed(edit.Bytes());
  Demand(changed.Get("port_def", "001") == "1|2|3");
  Demand(!changed.HasKey("Assign", "001"));
  // Changing one key changes only its line.
  if (!text.Sections().empty() && !text.Keys(text.Sections().front()).empty()) {
    const std::string section(text.Sections().front());
    const std::string name(text.Keys(section).front().name);
    IniEdit one(text);
    one.Set(section, name, "another value");
    const IniText after(one.Bytes());
    const std::vector<std::string> lines_after = LinesOf(after);
    std::size_t differing = lines_after.size() == lines.size() ? 0 : 2;
    for (std::size_t i = 0; i < std::min(lines_after.size(), lines.size()); ++i) {
      differing += lines_after[i] == lines[i] ? 0 : 1;
    }
    Demand(differing <= 1);
  }
  for (const std::string_view section : text.Sections()) {
    for (const IniText::Key& key : text.Keys(section)) {
      const bool touched =
          (SameName(section, "Port_Def") || SameName(section, "Assign")) && SameName(key.name, "001");
      Demand(touched || changed.Get(section, key.name) == key.value);
    }
  }
  return 0;
}
