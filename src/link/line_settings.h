#pragma once

#include <optional>
#include <string_view>

#include "link/uses.h"

namespace tarvok::link {

enum class Parity { kNone, kEven, kOdd };
enum class StopBits { kOne, kOneAndHalf, kTwo };

/** How a serial line is set. */
struct LineSettings {
  int speed = 9600;  // bit/s
  Parity parity = Parity::kNone;
  int data_bits = 8;
  StopBits stop_bits = StopBits::kOne;

  bool operator==(const LineSettings&) const = default;
};

/** Reads a settings text such as "9600,n,8,1": exactly four comma parts, speed, n/e/o, 5 to 8, 1/1.5/2.
 * Anything else is no setting, and a port that is opened with it does not open. */
std::optional<LineSettings> ParseLineSettings(std::string_view text);

}  // namespace tarvok::link
