#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarvok::store {

/** What stands in a field that is not set. */
inline constexpr std::string_view kUnset = "F";

/**
 * The n-th field of a pipe-separated list, from 1. Empty fields do not count: field 2 of "a||c" is "c". An n
 * beyond the end, or below 1, gives "".
 */
std::string_view GetField(std::string_view list, int n);

/**
 * The list with its n-th field replaced by the trimmed value. Here every pipe counts, and the last field
 * loses a closing pipe it never had. With fewer than n-1 pipes, or n below 1, the list comes back as it is;
 * for n = 1 a list without a pipe is replaced whole.
 */
std::string SetField(std::string_view list, int n, std::string_view value);

/** The fields of a list as GetField counts them, cut once. The text must outlive it. */
class FieldList {
 public:
  explicit FieldList(std::string_view list);

  /** Field n from 1; "" beyond the end. */
  std::string_view operator[](int n) const;
  int count() const { return count_; }

 private:
  static constexpr std::size_t kKept = 64;
  std::array<std::string_view, kKept> fields_{};
  std::string_view rest_;  // what follows the kept fields
  int count_ = 0;
};

/** Calls `take` with each field of the list that is not empty, in order. */
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
