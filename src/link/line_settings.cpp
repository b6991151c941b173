#include "link/line_settings.h"

#include <array>
#include <charconv>

#include "store/number_text.h"

namespace tarvok::link {
namespace {

std::optional<std::array<std::string_view, 4>> CommaParts(std::string_view text) {
  std::array<std::string_view, 4> parts;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::size_t comma = text.find(',');
    if ((comma == std::string_view::npos) != (i == 3)) return std::nullopt;
    parts[i] = Trim(text.substr(0, comma));
    if (i < 3) text.remove_prefix(comma + 1);
  }
  return parts;
}

}  // namespace

std::optional<LineSettings> ParseLineSettings(std::string_view text) {
  const auto parts = CommaParts(text);
  if (!parts) return std::nullopt;
  const auto& [speed, parity, data, stop] = *parts;

  LineSettings settings;
  const auto [end, error] = std::from_chars(speed.data(), speed.data() + speed.size(), settings.speed);
  if (error != std::errc() || end != speed.data() + speed.size() || settings.speed <= 0) return std::nullopt;

  if (parity == "n" || parity == "N") {
    settings.parity = Parity::kNone;
  } else if (parity == "e" || parity == "E") {
    settings.parity = Parity::kEven;
  } else if (parity == "o" || parity == "O") {
    settings.parity = Parity::kOdd;
  } else {
    return std::nullopt;
  }

  if (data.size() != 1 || data[0] < '5' || data[0] > '8') return std::nullopt;
  settings.data_bits = data[0] - '0';

  if (stop == "1") {
    settings.stop_bits = StopBits::kOne;
  } else if (stop == "1.5") {
    settings.stop_bits = StopBits::kOneAndHalf;
  } else if (stop == "2") {
    settings.stop_bits = StopBits::kTwo;
  } else {
    return std::nullopt;
  }
  return settings;
}

}  // namespace tarvok::link
