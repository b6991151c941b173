#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "link/uses.h"

namespace tarvok::link {

/**
 * Receives a section, indices 0 to 50000. Its size is fixed, so that nothing is allocated while data arrives.
 * Bytes beyond its end are counted by the receiver but not kept.
 */
class SectionImage {
 public:
  void Clear() { bytes_.fill(0); }
  void Store(std::int64_t at, std::span<const std::uint8_t> bytes) {
    if (at < 0 || at >= static_cast<std::int64_t>(bytes_.size())) return;
    const auto start = static_cast<std::size_t>(at);
    std::copy_n(bytes.begin(), std::min(bytes.size(), bytes_.size() - start), bytes_.begin() + start);
  }
  std::span<const std::uint8_t> bytes() const { return bytes_; }

 private:
  std::array<std::uint8_t, 50001> bytes_{};
};

}  // namespace tarvok::link
