#include "exchange/blank_images.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "sections/registry.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"
#include "sections/routing/tenan.h"
#include "sections/system/billing_mode.h"
#include "sections/system/pabx_mode.h"

namespace tarvok::exchange {
namespace {

/** A number of bytes with the same value. */
struct Run {
  int count = 0;
  std::uint8_t value = 0;
};

/** A section whose blank image is not what an empty project sends. */
struct Blank {
  int section;
  std::array<Run, 4> runs;
};

constexpr Blank kBlanks[] = {
    // Every mode is off. A project sends some as not set.
    {kPabxModeSection.number, {{{16, 0}, {2, 255}, {2, 0}}}},
    // No charges, and country 1. A project sends 255.
    {kBillingModeSection.number, {{{2, 255}, {24, 0}, {1, 1}, {13, 0}}}},
    // No list has an end. A project sends 0.
    {kRouteListSection.number, {{{100, 255}}}},
    // All tenants may call each other. A project sends 0 from version 103 on.
    {kTenanSection.number, {{{256, 255}}}},
};

constexpr std::size_t kRouteMapDigits = 20;

}  // namespace

Bytes BlankImage(int section, int version) {
  const Section* found = FindSection(section);
  const WireLayout* layout = found == nullptr ? nullptr : found->LayoutAt(version, Direction::kLoad);
  if (layout == nullptr) return {};
  const auto size = static_cast<std::size_t>(layout->size);
  if (const auto* blank = std::ranges::find(kBlanks, section, &Blank::section); blank != std::end(kBlanks)) {
    Bytes image;
    for (const Run& run : blank->runs)
      image.insert(image.end(), static_cast<std::size_t>(run.count), run.value);
    image.resize(size);
    return image;
  }
  ImageWriter image(layout->size);
  layout->encode(IniText(), image);
  return image.bytes();
}

Bytes RouteMapForLoad(const Bytes& sent, int version) {
  Bytes image = BlankImage(kRouteMapSection.number, version);
  const std::size_t from = sent.size() / kRouteMapRows;
  const std::size_t to = image.size() / kRouteMapRows;
  for (std::size_t record = 0; record < kRouteMapRows; ++record) {
    for (std::size_t at = 0; at < std::min(from, to); ++at) {
      std::uint8_t byte = sent[record * from + at];
      if (at < kRouteMapDigits && byte == '*') byte = 0x3B;
      if (at < kRouteMapDigits && byte == '#') byte = 0x3C;
      image[record * to + at] = byte;
    }
  }
  return image;
}

}  // namespace tarvok::exchange
