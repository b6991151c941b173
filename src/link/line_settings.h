#pragma once

#include <optional>
#include <string_view>

#include "link/uses.h"

namespace tarvok::link {

enum class Parity { kNone, kEven, kOdd };
enum class StopBits { kOne, kOneAndHalf, kTwo };

/** Settings of a serial line. */
struct LineSettings {
  int speed = 9600;  // bit/s
  Parity parity = Parity::kNone;
  int data_bits = 8;
  StopBits stop_bits = StopBits::kOne;

  bool operator==(const LineSettings&) const = default;
};

/**
 * Parses a text such as "9600,n,8,1": exactly four parts separated by commas: speed, n/e/o, 5 to 8, and
 * 1/1.5/2. Returns nullopt for anything else; a port cannot be opened with such a text.
 */
std::optional<LineSettings> ParseLineSettings(std::string_view text);

}  // namespace tarvok::link
