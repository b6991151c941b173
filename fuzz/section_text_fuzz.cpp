// Any project as the source of a section: encoding fills an image of the section's size or reports why it
// cannot.

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
  const auto sections = Sections();
  const Section& section = *sections[data[0] % sections.size()];
  const WireLayout& layout = section.layouts[data[1] % std::size(section.layouts)];
  if (layout.encode == nullptr) return 0;
  const IniText project(std::string(reinterpret_cast<const char*>(data + 2), size - 2));
  ImageWriter image(layout.size);
  layout.encode(project, image);
  Demand(image.bytes().size() == static_cast<std::size_t>(layout.size));
  Demand(image.ok() || image.error().starts_with("section "));
  // Encoding the same project again gives the same result.
  ImageWriter again(layout.size);
  layout.encode(project, again);
  Demand(again.bytes() == image.bytes() && again.error() == image.error());
  return 0;
}
