#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "store/ini_text.h"
#include "tests/floors.h"

namespace tarvok::test {

using Images = std::map<int, std::vector<std::uint8_t>>;  // by section

/** Images for all sections of a version: all 0, all 255, or, behind these, random ones of which every third
 * are cut short. */
Images ImagesOf(int version, unsigned kind);
inline constexpr unsigned kConstantKinds = 2;
inline constexpr unsigned kKinds = 5;

/** Decodes the images in the order of a load. */
IniText Load(int version, const Images& images);

}  // namespace tarvok::test
