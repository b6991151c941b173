#pragma once

#include <string>

#include "sections/image_reader.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok {

inline constexpr int kUnsetWord = 65535;

/** 16 bits, low byte first, as they stand. Some sections read any high byte of 255 as "not set"
 * (ImageReader::Word); those that use this one do so for 65,535 alone. */
inline int RawWord(const ImageReader& image, int at) {
  return image.Byte(at) + 256 * image.Byte(at + 1);
}

/** The 16 bits plus 1, padded to `width` digits; "F" for 65,535. */
inline std::string RawPlusOneWord(const ImageReader& image, int at, int width = 0) {
  const int value = RawWord(image, at);
  return value == kUnsetWord ? std::string(kUnset) : Padded(value + 1, width);
}

}  // namespace tarvok
