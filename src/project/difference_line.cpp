#include "project/difference_line.h"

namespace tarvok::project {
namespace {

constexpr std::string_view kFieldSign = " \u00B7 ";
constexpr std::string_view kChangeSign = " \u2192 ";

/** For a row in only one project: which one, with the contents in brackets if there are any. */
std::string OnlyIn(std::string_view which, const std::string& contents) {
  std::string text(": only in the ");
  text.append(which);
  return contents.empty() ? text : text.append(" (").append(contents).append(")");
}

}  // namespace

std::string DifferenceLine(const Difference& difference,
                           const std::function<std::string(std::string_view)>& letters, SideNames names) {
  std::string line = letters(difference.row);
  switch (difference.kind) {
    case Difference::Kind::kOnlyInFirst:
      return line.append(OnlyIn(names.first, letters(difference.before)));
    case Difference::Kind::kOnlyInSecond:
      return line.append(OnlyIn(names.second, letters(difference.after)));
    case Difference::Kind::kMoved:
      return line.append(": ").append(difference.after);
    case Difference::Kind::kField:
      break;
  }
  if (!difference.field.empty()) line.append(kFieldSign).append(letters(difference.field));
  return line.append(": ")
      .append(letters(difference.before))
      .append(kChangeSign)
      .append(letters(difference.after));
}

}  // namespace tarvok::project
