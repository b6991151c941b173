// Any image of any section: decoding writes a project that reads back. If byte 1 says so, that project is
// then encoded without a fault.

#include <cstdint>
#include <iterator>
#include <string>

#include "fuzz/demand.h"
#include "sections/registry.h"
#include "tests/floors.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  if (size < 2) return 0;
  constexpr std::uint8_t kGoesBack = 0x80;
  const auto sections = Sections();
  const Section& section = *sections[data[0] % sections.size()];
  const WireLayout& layout = section.layouts[data[1] % kGoesBack % std::size(section.layouts)];
  if (layout.decode == nullptr) return 0;
  const IniText empty;
  IniEdit edit(empty);
  layout.decode(ImageReader({data + 2, size - 2}), edit);
  if (data[1] < kGoesBack) return 0;
  const IniText project(edit.Bytes());
  for (const std::string_view name : project.Sections()) {
    for (const IniText::Key& key : project.Keys(name)) {
      // A reader strips blanks and quotes at the ends and cuts long values; nothing else may differ.
      Demand(edit.Get(name, key.name).find(key.value) != std::string::npos);
    }
  }
  if (layout.encode == nullptr) return 0;
  ImageWriter image(layout.size);
  layout.encode(project, image);
  return 0;
}
