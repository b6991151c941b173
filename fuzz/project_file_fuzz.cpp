// Any bytes as a project file: reading never fails, and a change keeps every other line.

#include <algorithm>
#include <cstdint>
#include <string>

#include "fuzz/demand.h"
#include "store/ini_edit.h"
#include "tests/floors.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  const IniText text(std::string(reinterpret_cast<const char*>(data), size));
  std::string joined;
  for (const IniText::Line& line : text.lines()) joined += line.text;
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
    std::size_t differing = after.lines().size() == text.lines().size() ? 0 : 2;
    for (std::size_t i = 0; i < std::min(after.lines().size(), text.lines().size()); ++i) {
      differing += after.lines()[i].text == text.lines()[i].text ? 0 : 1;
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
