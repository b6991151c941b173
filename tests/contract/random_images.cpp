#include "tests/contract/random_images.h"

#include <random>

#include "sections/image_reader.h"
#include "sections/registry.h"
#include "store/ini_edit.h"
#include "tests/floors.h"

namespace tarvok::test {

Images ImagesOf(int version, unsigned kind) {
  std::mt19937 random(kind * 1000 + static_cast<unsigned>(version));
  Images images;
  for (const Section* section : ReadPlan(version)) {
    std::vector<std::uint8_t>& image = images[section->number];
    image.assign(static_cast<std::size_t>(SizeAt(section->number, version, Direction::kLoad)),
                 kind == 1 ? 255 : 0);
    if (kind < 2 || image.empty()) continue;
    for (std::uint8_t& byte : image) {
      const std::uint32_t choice = random() % 4;  // small numbers, bytes that are not set, or any byte
      byte = static_cast<std::uint8_t>(choice == 0   ? 255
                                       : choice == 1 ? 0
                                                     : random() % (choice == 2 ? 20 : 256));
    }
    if (kind % 3 == 0) image.resize(random() % image.size());
  }
  return images;
}

IniText Load(int version, const Images& images) {
  const IniText nothing;
  IniEdit project(nothing);
  for (const Section* section : ReadPlan(version)) {
    const WireLayout* layout = section->LayoutAt(version, Direction::kLoad);
    const auto image = images.find(section->number);
    if (layout == nullptr || layout->decode == nullptr || image == images.end()) continue;
    layout->decode(ImageReader(image->second), project);
  }
  return IniText(project.Bytes());
}

}  // namespace tarvok::test
