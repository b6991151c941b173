#include "store/field_list.h"

#include <algorithm>

#include "store/number_text.h"

namespace tarvok::store {
namespace {

/** Removes the next non-empty field from the front of the list and returns it; "" at the end. */
std::string_view TakeField(std::string_view& list) {
  while (!list.empty() && list.front() == '|') list.remove_prefix(1);
  // Most fields are one to three bytes long, so a simple loop beats a call to the library's search.
  const std::string_view field(list.begin(), std::find(list.begin(), list.end(), '|'));
  list.remove_prefix(field.size());
  return field;
}

}  // namespace

std::string_view GetField(std::string_view list, int n) {
  std::string_view field;
  for (int i = 0; i < n; ++i) {
    field = TakeField(list);
    if (field.empty()) break;
  }
  return field;
}

std::string SetField(std::string_view list, int n, std::string_view value) {
  if (n < 1) return std::string(list);
  std::size_t start = 0;
  for (int i = 1; i < n; ++i) {
    const std::size_t pipe = list.find('|', start);
    if (pipe == std::string_view::npos) return std::string(list);
    start = pipe + 1;
  }
  const std::size_t next = list.find('|', start);
  std::string result(list.substr(0, start));
  result.append(Trim(value));
  if (next != std::string_view::npos) result.append(list.substr(next));
  return result;
}

FieldList::FieldList(std::string_view list) : rest_(list) {
  for (std::string_view& field : fields_) {
    field = TakeField(rest_);
    if (field.empty()) return;
    ++count_;
  }
  for (std::string_view rest = rest_; !TakeField(rest).empty();) ++count_;
}

std::string_view FieldList::operator[](int n) const {
  if (n < 1) return {};
  const auto index = static_cast<std::size_t>(n) - 1;
  return index < kKept ? fields_[index] : GetField(rest_, n - static_cast<int>(kKept));
}

}  // namespace tarvok::store
