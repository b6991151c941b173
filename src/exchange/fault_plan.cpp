#include "exchange/fault_plan.h"

#include <charconv>
#include <string>

namespace tarvok::exchange {
namespace {

constexpr int kMostDelay_ms = 60'000;
constexpr int kMostUnits = 1'000'000'000;

template <typename Number>
std::optional<Number> Read(std::string_view text) {
  Number number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
  return number;
}

/** "" if the item was valid, otherwise what it should be. */
std::string TakePiece(std::string_view name, std::string_view value, FaultPlan& plan) {
  const std::pair<std::string_view, double*> chances[] = {
      {"drop", &plan.drop}, {"flip", &plan.flip}, {"dup", &plan.dup}, {"error-reply", &plan.error_reply}};
  for (const auto& [chance, target] : chances) {
    if (name != chance) continue;
    const std::optional<double> number = Read<double>(value);
    if (!number || !(*number >= 0 && *number <= 1)) return "needs a probability from 0 to 1";
    *target = *number;
    return "";
  }
  const std::optional<int> number = Read<int>(value);
  if (name == "delay") {
    if (!number || *number < 0 || *number > kMostDelay_ms) return "needs milliseconds from 0 to 60000";
    plan.delay_ms = *number;
    return "";
  }
  if (name != "silent-after" && name != "hangup-after") return "is not a fault";
  if (!number || *number < 0 || *number > kMostUnits) return "needs a count of units, 0 or more";
  (name == "silent-after" ? plan.silent_after : plan.hangup_after) = number;
  return "";
}

}  // namespace

Result<FaultPlan> ParseFaultPlan(std::string_view text) {
  FaultPlan plan;
  while (true) {
    const std::size_t comma = text.find(',');
    const std::string_view piece = text.substr(0, comma);
    const std::size_t equals = piece.find('=');
    if (equals == std::string_view::npos) {
      return Status(ErrorKind::kBadData, "\"" + std::string(piece) + "\" is not NAME=VALUE");
    }
    const std::string wrong = TakePiece(piece.substr(0, equals), piece.substr(equals + 1), plan);
    if (!wrong.empty()) return Status(ErrorKind::kBadData, "\"" + std::string(piece) + "\" " + wrong);
    if (comma == std::string_view::npos) return plan;
    text.remove_prefix(comma + 1);
  }
}

}  // namespace tarvok::exchange
