#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarvok::store {

/** The value of a field that is not set. */
inline constexpr std::string_view kUnset = "F";

/**
 * Returns the n-th field of a pipe-separated list, counting from 1. Empty fields do not count: field 2 of
 * "a||c" is "c". Returns "" if n is below 1 or beyond the end.
 */
std::string_view GetField(std::string_view list, int n);

/**
 * Returns the list with its n-th field replaced by the trimmed value. Here every pipe counts. A list with
 * fewer than n-1 pipes, or an n below 1, is returned unchanged; for n = 1, a list without a pipe is replaced
 * as a whole.
 */
std::string SetField(std::string_view list, int n, std::string_view value);

/** The fields of a list as GetField counts them, split once. The text must outlive the object. */
class FieldList {
 public:
  explicit FieldList(std::string_view list);

  /** Field n, counting from 1; "" beyond the end. */
  std::string_view operator[](int n) const;
  int count() const { return count_; }

 private:
  static constexpr std::size_t kKept = 64;
  std::array<std::string_view, kKept> fields_{};
  std::string_view rest_;  // what follows the first kKept fields
  int count_ = 0;
};

/** Calls `take` with each non-empty field of the list, in order. */
template <typename Take>
void ForEachField(std::string_view list, Take take) {
  while (!list.empty()) {
    const std::size_t pipe = list.find('|');
    const std::string_view field = list.substr(0, pipe);
    list = pipe == std::string_view::npos ? std::string_view() : list.substr(pipe + 1);
    if (!field.empty()) take(field);
  }
}

}  // namespace tarvok::store
