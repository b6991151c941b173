#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "link/uses.h"

namespace tarvok::link {

/**
 * A receive buffer of fixed size, so that nothing is allocated while data arrives. Bytes beyond its end are
 * counted by the receiver but not kept.
 */
template <std::size_t Size>
class ReceiveImage {
 public:
  void Clear() { bytes_.fill(0); }
  void Store(std::int64_t at, std::span<const std::uint8_t> bytes) {
    if (at < 0 || at >= static_cast<std::int64_t>(Size)) return;
    const auto start = static_cast<std::size_t>(at);
    std::copy_n(bytes.begin(), std::min(bytes.size(), Size - start), bytes_.begin() + start);
  }
  std::span<const std::uint8_t> bytes() const { return bytes_; }

 private:
  std::array<std::uint8_t, Size> bytes_{};
};

/** Receives a section, indices 0 to 50000. */
using SectionImage = ReceiveImage<50001>;
/** Receives mini bar data, indices 0 to 512. */
using MiniBarImage = ReceiveImage<513>;

}  // namespace tarvok::link
