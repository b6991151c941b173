#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "sections/image_reader.h"
#include "sections/image_writer.h"
#include "sections/registry.h"
#include "tests/expect_keys.h"
#include "tests/floors.h"
#include "tests/hex.h"

namespace tarvok::test {

/** Encodes a project given as INI text. The encoder's error, if any, is in the result. */
inline ImageWriter Encoded(Encoder encode, int size, const std::string& project) {
  const IniText text(project);
  ImageWriter image(size);
  encode(text, image);
  return image;
}

/** The `count` bytes of the image from offset `at`. */
inline std::vector<std::uint8_t> Part(const ImageWriter& image, int at, int count) {
  return {image.bytes().begin() + at, image.bytes().begin() + at + count};
}

/** Decodes an image into a project given as INI text and returns the changed project. */
inline IniText Decoded(Decoder decode, const std::vector<std::uint8_t>& image,
                       const std::string& project = {}) {
  const IniText base(project);
  IniEdit edit(base);
  decode(ImageReader(image), edit);
  return IniText(edit.Bytes());
}

inline std::string Repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

/** The image with the bytes from `at` replaced by `part`. */
inline std::vector<std::uint8_t> With(std::vector<std::uint8_t> image, int at,
                                      const std::vector<std::uint8_t>& part) {
  std::copy(part.begin(), part.end(), image.begin() + at);
  return image;
}

/** An image filled with one byte, except for `part` at `at`. */
inline std::vector<std::uint8_t> ImageWith(int size, std::uint8_t fill, int at,
                                           const std::vector<std::uint8_t>& part) {
  return With(std::vector<std::uint8_t>(static_cast<std::size_t>(size), fill), at, part);
}

}  // namespace tarvok::test
