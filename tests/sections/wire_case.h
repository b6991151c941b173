#pragma once

#include <string>

#include "tests/floors.h"
#include "tests/sections/record_case.h"

namespace tarvok::test {

/** Expects the bytes `expected` at `at` in the image of a project, or the encoder's error if `expected`
 * begins with "section ". */
inline void ExpectImage(Encoder encode, int size, const std::string& project, int at,
                        const std::string& expected) {
  SCOPED_TRACE(project);
  const ImageWriter image = Encoded(encode, size, project + "\n");
  if (expected.starts_with("section ")) {
    EXPECT_EQ(image.error(), expected);
    return;
  }
  EXPECT_EQ(image.error(), "");
  const std::vector<std::uint8_t> bytes = Hex(expected);
  EXPECT_EQ(Part(image, at, static_cast<int>(bytes.size())), bytes);
}

/** Calls ExpectImage for each pair of keys, added to `before`, and the expected result. */
inline void ExpectImages(Encoder encode, int size, const std::string& before, int at,
                         const std::vector<std::pair<std::string, std::string>>& cases) {
  for (const auto& [keys, expected] : cases) ExpectImage(encode, size, before + keys, at, expected);
}

}  // namespace tarvok::test
