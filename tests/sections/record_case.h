#pragma once

#include "tests/floors.h"
#include "tests/sections/coder_case.h"

namespace tarvok::test {

inline const std::string kTooLarge = " is more than its place on the wire can hold";
inline const std::string kNegative = " is negative";
inline const std::string kNotDialled = " holds a character that can't be dialled";
/** Stands for a key that exists but has no value. */
inline const std::string kEmpty = "(empty)";

enum Way { kBothWays, kOut, kBack };

/** A row and its record. The row "" is a missing key in the project to encode, or a key removed by decoding.
 * Instead of a record there may be an encoder's error: "field: value V, why" as ImageWriter words it. */
struct CoderCase {
  std::string row;
  std::string record;
  Way way = kBothWays;
};

/** Where a record is in a section's image, its row, and the coders that convert between them. */
struct Place {
  Encoder encode;
  Decoder decode;
  std::string section;
  std::string key;
  int size;
  int at;
  std::string project = {};  // other keys, as INI text

  std::string Project(const std::string& row) const {
    const IniText others(project);
    IniEdit edit(others);
    if (!row.empty()) edit.Set(section, key, row);
    return edit.Bytes();
  }
};

/** Expects that encoding a row gives its record and changes no other byte, and that decoding the record, in
 * an image of 255s, gives the row. */
inline void ExpectCoded(const Place& place, const std::vector<CoderCase>& cases) {
  for (const CoderCase& c : cases) {
    SCOPED_TRACE(c.row + " / " + c.record);
    if (c.way != kBack) {
      const ImageWriter image = Encoded(place.encode, place.size, place.Project(c.row));
      if (c.record.find(": ") != std::string::npos) {
        EXPECT_EQ(image.error(), "section " + place.section + ", row " + place.key + ", field " + c.record);
        continue;
      }
      EXPECT_EQ(image.error(), "");
      const std::vector<std::uint8_t> other = Encoded(place.encode, place.size, place.Project("")).bytes();
      EXPECT_EQ(image.bytes(), With(other, place.at, Hex(c.record)));
    }
    if (c.way != kOut) {
      const std::vector<std::uint8_t> image(static_cast<std::size_t>(place.size), 255);
      const IniText loaded =
          Decoded(place.decode, With(image, place.at, Hex(c.record)), place.Project("old|1|1|1|1"));
      EXPECT_EQ(loaded.Get(place.section, place.key), c.row == kEmpty ? "" : c.row);
      EXPECT_EQ(loaded.HasKey(place.section, place.key), !c.row.empty());
    }
  }
}

}  // namespace tarvok::test
