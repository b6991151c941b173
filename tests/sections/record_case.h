#pragma once

#include "tests/sections/coder_case.h"

namespace tarvok::test {

/** A row and the record that it makes, or that makes it. */
struct RecordCase {
  std::string row;
  std::string record;
};

/** One record of a section's image and its row. */
struct Place {
  std::string section;
  std::string key;
  int size;
  int at;

  std::string Project(const std::string& row) const {
    return "\n[" + section + "]\n" + key + "=" + row + "\n";
  }
};

/** Each row makes its record, without an error and without touching any other byte. */
inline void ExpectRecords(Encoder encode, const Place& place, const std::vector<RecordCase>& cases,
                          const std::string& project = {}) {
  for (const RecordCase& c : cases) {
    SCOPED_TRACE(c.row);
    const ImageWriter image = Encoded(encode, place.size, project + place.Project(c.row));
    std::vector<std::uint8_t> expected = Encoded(encode, place.size, project).bytes();
    const std::vector<std::uint8_t> record = Hex(c.record);
    std::copy(record.begin(), record.end(), expected.begin() + place.at);
    EXPECT_EQ(image.error(), "");
    EXPECT_EQ(Part(image, place.at, static_cast<int>(record.size())), record);
    EXPECT_EQ(image.bytes(), expected);
  }
}

/** Each record, in an image of 255s, makes its row; none means that the key is gone. */
inline void ExpectRows(Decoder decode, const Place& place, const std::vector<RecordCase>& cases,
                       const std::string& project = {}) {
  for (const RecordCase& c : cases) {
    SCOPED_TRACE(c.record);
    const IniText loaded = Decoded(decode, ImageWith(place.size, 255, place.at, Hex(c.record)),
                                   project + place.Project("old|1|1|1|1"));
    EXPECT_EQ(loaded.Get(place.section, place.key), c.row);
    EXPECT_EQ(loaded.HasKey(place.section, place.key), !c.row.empty());
  }
}

struct ErrorCase {
  std::string row;
  std::string field_and_value;
  std::string why = "is more than its place on the wire can hold";
};

/** Each row is refused with the section, the key, the field and its value. */
inline void ExpectErrors(Encoder encode, const Place& place, const std::vector<ErrorCase>& cases) {
  for (const ErrorCase& c : cases) {
    EXPECT_EQ(
        Encoded(encode, place.size, place.Project(c.row)).error(),
        "section " + place.section + ", row " + place.key + ", field " + c.field_and_value + " " + c.why);
  }
}

}  // namespace tarvok::test
