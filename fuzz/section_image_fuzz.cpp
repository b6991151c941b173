// Any image of any section: decoding writes a project that reads back, and that project encodes without a fault.

#include <cstdint>
#include <string>
#include <vector>

#include "sections/registry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  if (size < 2) return 0;
  const auto sections = Sections();
  const Section& section = sections[data[0] % sections.size()];
  const Layout& layout = section.layouts[data[1] % section.layouts.size()];
  if (layout.decode == nullptr) return 0;
  const IniText empty;
  IniEdit edit(empty);
  layout.decode(ImageReader({data + 2, size - 2}), edit);
  const IniText project(edit.Bytes());
  if (layout.encode == nullptr) return 0;
  ImageWriter image(layout.size);
  layout.encode(project, image);
  return 0;
}
