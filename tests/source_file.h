#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "tests/floors.h"

namespace tarvok::test {

/** The bytes of a file that is supplied with the sources, its path from their root: "/examples/hotel.tvk". */
inline std::string SourceFile(const std::string& path) {
  std::ifstream file(TARVOK_SOURCE_DIR + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tarvok::test
