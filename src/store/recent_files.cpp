#include "store/recent_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tarvok::store {
namespace {

constexpr std::string_view kGroup = "Recent Files";

std::string KeyOf(int index) {
  return "Recent" + std::to_string(index + 1);
}

std::string CleanPath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute.lexically_normal().string();
}

}  // namespace

void RecentFiles::LoadRecentFiles() {
  if (settings_.Get(kGroup, KeyOf(0)).empty()) return;
  for (int i = 0; i < kCount; ++i) entries_[static_cast<std::size_t>(i)] = settings_.Get(kGroup, KeyOf(i));
}

void RecentFiles::Store(int index, const std::string& path) {
  entries_[static_cast<std::size_t>(index)] = path;
  settings_.Set(kGroup, KeyOf(index), path);
}

void RecentFiles::AddRecentFile(const std::string& path) {
  const std::string clean = CleanPath(path);
  const auto found = std::find(entries_.begin(), entries_.end(), clean);
  int place = found == entries_.end() ? kCount - 1 : static_cast<int>(found - entries_.begin());
  if (place == 0 && found != entries_.end()) return;
  for (; place > 0; --place) Store(place, std::string(entries_[static_cast<std::size_t>(place) - 1]));
  Store(0, clean);
}

std::vector<std::string> RecentFiles::ShowRecentFiles() const {
  return {entries_.begin(), std::find(entries_.begin(), entries_.end(), "")};
}

}  // namespace tarvok::store
