#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "store/ini_text.h"
#include "tests/floors.h"

namespace tarvok::test {

using Images = std::map<int, std::vector<std::uint8_t>>;  // by section

/** Images for all sections of a version. Kind 0 is all 0, kind 1 is all 255, others are random, every third
 * of them cut short. */
Images ImagesOf(int version, unsigned kind);
inline constexpr unsigned kConstantKinds = 2;
inline constexpr unsigned kKinds = 5;

/** Decodes the images in the order of a load. */
IniText Load(int version, const Images& images);

}  // namespace tarvok::test
