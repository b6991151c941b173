#include "exchange/blank_images.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarvok::exchange {
namespace {

/** A number of bytes with the same value. */
struct Run {
  int count = 0;
  std::uint8_t value = 0;
};

/** A head, followed by a record that repeats to the end of the image. */
struct Blank {
  int section = 0;
  Run head;
  std::array<Run, 3> record{};
};

/** Sections whose blank bytes are not all 255. */
constexpr std::array kBlanks = {
    Blank{1, {}, {Run{1, 0}, Run{2, 255}, Run{17, 0}}},       // a profile with its defaults
    Blank{2, {16, 0}, {Run{2, 255}, Run{2, 0}}},              // every mode off, no number to transfer to
    Blank{3, {2, 255}, {Run{24, 0}, Run{1, 1}, Run{13, 0}}},  // no local code, no charge, country 1
    Blank{3, {}, {Run{1, 0}}},                                // no charges
    Blank{5, {}, {Run{1, 0}}},                                // no digit list
    Blank{6, {}, {Run{1, 0}}},                                //
    Blank{10, {}, {Run{9, 255}, Run{40, 0}}},                 // a route without a group
    Blank{11, {64, 0}, {Run{1, 255}}},                        // totals, then free members
    Blank{14, {}, {Run{1, 0}}},                               // names are not filled with 255
    Blank{15, {40, 0}, {Run{1, 255}}},                        // totals, then free members
    Blank{17, {2200, 255}, {Run{1, 0}}},       // 200 accounts, and room for 300 that are never used
    Blank{19, {}, {Run{10, 0}, Run{2, 255}}},  // a number without digits
    Blank{21, {}, {Run{1, 0}}},                //
    Blank{24, {}, {Run{1, 0}}},                // times 00:00
    Blank{25, {}, {Run{1, 0}}},                //
    Blank{26, {}, {Run{1, 0}}},                // no holiday
    Blank{27, {}, {Run{1, 0}}},                // keys without a function
    Blank{37, {2, 0}, {Run{1, 0x10}}},         // links over device 1, card 0
    Blank{38, {}, {Run{1, 0}}},                //
    Blank{39, {}, {Run{1, 0}}},                //
    Blank{41, {}, {Run{1, 0}}},                //
    Blank{42, {}, {Run{6, 0}, Run{1, 255}, Run{13, 0}}},  // the rest of a default profile
    Blank{44, {}, {Run{1, 0}}},                           //
    Blank{46, {}, {Run{1, 0}}},                           //
};

constexpr int kRouteMapRecords = 200;
constexpr int kRouteMapDigits = 20;

void Append(Bytes& image, Run run) {
  image.insert(image.end(), static_cast<std::size_t>(run.count), run.value);
}

/** A record with 20 unset digits; the rest is 255. */
Bytes BlankRouteMap(std::size_t size) {
  Bytes image;
  const int rest = static_cast<int>(size) / kRouteMapRecords - kRouteMapDigits;
  while (image.size() < size) {
    Append(image, {kRouteMapDigits, 0});
    Append(image, {std::max(rest, 1), 255});
  }
  return image;
}

}  // namespace

Bytes BlankImage(int section, int size) {
  const auto wanted = static_cast<std::size_t>(size);
  Bytes image;
  if (section == kRouteMapSection) {
    image = BlankRouteMap(wanted);
  } else {
    const auto* blank = std::find_if(kBlanks.begin(), kBlanks.end(),
                                     [&](const Blank& row) { return row.section == section; });
    if (blank == kBlanks.end()) return Bytes(wanted, 255);
    Append(image, blank->head);
    while (image.size() < wanted) {
      for (const Run& run : blank->record) Append(image, run);
    }
  }
  image.resize(wanted);
  return image;
}

Bytes RouteMapForLoad(const Bytes& sent, int size) {
  Bytes image = BlankImage(kRouteMapSection, size);
  const std::size_t from = sent.size() / kRouteMapRecords;
  const std::size_t to = image.size() / kRouteMapRecords;
  for (std::size_t record = 0; record < kRouteMapRecords; ++record) {
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
