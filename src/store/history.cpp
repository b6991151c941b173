#include "store/history.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>

#include "store/history_names.h"
#include "store/new_project.h"
#include "store/whole_write.h"

namespace tarvok::store {
namespace {

constexpr std::string_view kEnd = ".tvk";
constexpr std::string_view kHalfWritten = ".tvk.tmp";
constexpr std::string_view kDamaged = "This version is damaged and can't be brought back.";
constexpr std::size_t kNumberDigits = 6;
constexpr std::size_t kTimeLetters = 16;  // 20260131T235959Z
constexpr std::size_t kMostReason = 100;  // bytes; escaping makes up to three characters of each

constexpr int kHexadecimal = 16;

std::string TimeText(std::int64_t time_s) {
  using namespace std::chrono;
  const sys_seconds time{seconds(time_s)};
  const sys_days day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  char text[kTimeLetters + kTimeLetters] = {};
  std::snprintf(text, sizeof text, "%04d%02u%02uT%02d%02d%02dZ", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

std::optional<std::int64_t> DecimalAt(std::string_view text, std::size_t at, std::size_t digits) {
  const std::string_view part = text.substr(at, digits);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
  if (error != std::errc() || end != part.data() + part.size() || part.empty() || value < 0)
    return std::nullopt;
  return value;
}

std::optional<std::int64_t> TimeOf(std::string_view text) {
  using namespace std::chrono;
  if (text.size() != kTimeLetters || text[8] != 'T' || text[15] != 'Z') return std::nullopt;
  std::int64_t part[6] = {};
  constexpr struct {
    std::size_t at;
    std::size_t digits;
  } kParts[] = {{0, 4}, {4, 2}, {6, 2}, {9, 2}, {11, 2}, {13, 2}};
  for (std::size_t i = 0; i < std::size(kParts); ++i) {
    const std::optional<std::int64_t> value = DecimalAt(text, kParts[i].at, kParts[i].digits);
    if (!value) return std::nullopt;
    part[i] = *value;
  }
  const year_month_day date(year(static_cast<int>(part[0])), month(static_cast<unsigned>(part[1])),
                            day(static_cast<unsigned>(part[2])));
  if (!date.ok()) return std::nullopt;
  const seconds clock = hours(part[3]) + minutes(part[4]) + seconds(part[5]);
  return (sys_days(date).time_since_epoch() + clock).count();
}

/** Escapes a reason for use in a file name, so that nothing in it is special to a path or a shell. */
std::string Escaped(std::string_view reason) {
  std::string name;
  for (const char c : reason.substr(0, std::min(reason.size(), kMostReason / 2))) {
    if (IsPlainInName(c) || c == ' ') {
      name += c;
      continue;
    }
    char spelled[4] = {};
    std::snprintf(spelled, sizeof spelled, "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    name += spelled;
  }
  return name;
}

std::string Unescaped(std::string_view name) {
  std::string reason;
  for (std::size_t i = 0; i < name.size(); ++i) {
    unsigned value = 0;
    const std::string_view digits = name.substr(std::min(i + 1, name.size()), 2);
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, kHexadecimal);
    const bool spelled = name[i] == '%' && error == std::errc() && end == digits.data() + 2;
    reason += spelled ? static_cast<char>(value) : name[i];
    if (spelled) i += 2;
  }
  return reason;
}

std::string NameOf(std::int64_t number, std::int64_t time_s, std::string_view hash, std::string_view reason) {
  std::string digits = std::to_string(number);
  if (digits.size() < kNumberDigits) digits.insert(0, kNumberDigits - digits.size(), '0');
  return digits.append(" ")
      .append(TimeText(time_s))
      .append(" ")
      .append(hash)
      .append(" ")
      .append(Escaped(reason))
      .append(kEnd);
}

/** The hash stated in a version's name. */
std::string_view HashIn(std::string_view name) {
  return name.substr(name.find(' ') + 1 + kTimeLetters + 1, kHashDigits);
}

/** Parses a version's file name; nullopt if the file is not a version. */
std::optional<KeptVersion> VersionOf(const std::string& name) {
  const std::string_view view(name);
  const std::size_t blank = view.find(' ');
  const std::size_t head = blank + 1 + kTimeLetters + 1 + kHashDigits + 1;
  if (blank == std::string_view::npos || !view.ends_with(kEnd) || view.size() < head + kEnd.size()) {
    return std::nullopt;
  }
  const std::optional<std::int64_t> number = DecimalAt(view, 0, blank);
  const std::optional<std::int64_t> time_s = TimeOf(view.substr(blank + 1, kTimeLetters));
  if (!number || !time_s) return std::nullopt;
  return KeptVersion{*number, *time_s, Unescaped(view.substr(head, view.size() - head - kEnd.size())), name};
}

/** The versions in a folder, newest first; empty if the folder does not exist. */
Result<std::vector<KeptVersion>> VersionsIn(FileSystem& files, const std::string& folder) {
  const Result<std::vector<std::string>> names = files.List(folder);
  std::vector<KeptVersion> versions;
  if (!names.ok()) {
    if (names.status().kind() == ErrorKind::kNotFound) return versions;
    return names.status();
  }
  for (const std::string& name : names.value()) {
    if (std::optional<KeptVersion> version = VersionOf(name)) versions.push_back(std::move(*version));
  }
  std::sort(versions.begin(), versions.end(),
            [](const KeptVersion& a, const KeptVersion& b) { return a.number > b.number; });
  return versions;
}

}  // namespace

std::string ProjectIdentity(FileSystem& files, const std::string& project_path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(files.Resolve(project_path), error);
  const std::string path = error ? project_path : absolute.lexically_normal().string();
  return NameWithHash(std::filesystem::path(path).stem().string(), path);
}

std::string History::FolderOf(const std::string& project_path) {
  return InFolder(folder_, ProjectIdentity(files_, project_path));
}

Status History::Keep(const std::string& project_path, std::string_view reason, std::int64_t time_s) {
  const Result<std::string> bytes = files_.Read(project_path);
  if (!bytes.ok()) return bytes.status().kind() == ErrorKind::kNotFound ? Status() : bytes.status();
  const std::string folder = FolderOf(project_path);
  if (!make_folder_(folder)) return {ErrorKind::kInputOutput, folder + ": the folder cannot be created"};
  const Result<std::unique_ptr<FileLock>> lock = files_.Lock(InFolder(folder, kEnd));
  if (!lock.ok()) return lock.status();
  const Status added = Add(folder, bytes.value(), reason, time_s);
  return added.ok() ? DropOldest(folder) : added;
}

Status History::Add(const std::string& folder, const std::string& bytes, std::string_view reason,
                    std::int64_t time_s) {
  const Result<std::vector<KeptVersion>> versions = VersionsIn(files_, folder);
  if (!versions.ok()) return versions.status();
  const std::int64_t number = versions.value().empty() ? 1 : versions.value().front().number + 1;
  const std::string hash = HashOf(bytes);
  const std::string path = InFolder(folder, NameOf(number, time_s, hash, reason));
  for (const KeptVersion& version : versions.value()) {
    if (HashIn(version.file) != hash) continue;
    const std::string there = InFolder(folder, version.file);
    const Result<std::string> kept = files_.Read(there);
    if (kept.ok() && kept.value() == bytes) return files_.Rename(there, path, Flush::kNow);
  }
  return WriteWhole(files_, path, bytes);
}

Status History::DropOldest(const std::string& folder) {
  const Result<std::vector<KeptVersion>> versions = VersionsIn(files_, folder);
  if (!versions.ok()) return versions.status();
  Status dropped;
  for (std::size_t i = kMostVersions; i < versions.value().size(); ++i) {
    if (Status removed = files_.Remove(InFolder(folder, versions.value()[i].file)); !removed.ok())
      dropped = removed;
  }
  const Result<std::vector<std::string>> names = files_.List(folder);
  if (!names.ok()) return names.status();
  for (const std::string& name : names.value()) {
    if (!name.ends_with(kHalfWritten)) continue;  // the lock is held, so its writer was killed
    if (Status removed = files_.Remove(InFolder(folder, name)); !removed.ok()) dropped = removed;
  }
  return dropped;
}

Result<std::vector<KeptVersion>> History::Versions(const std::string& project_path) {
  return VersionsIn(files_, FolderOf(project_path));
}

Result<std::string> History::Read(const std::string& project_path, const KeptVersion& version) {
  Result<std::string> bytes = files_.Read(InFolder(FolderOf(project_path), version.file));
  if (bytes.ok() && HashOf(bytes.value()) != HashIn(version.file)) {
    return Status(ErrorKind::kBadData, std::string(kDamaged));
  }
  return bytes;
}

Status History::BringBack(const std::string& project_path, const KeptVersion& version, std::int64_t time_s) {
  // Read it first: keeping the present state may drop this version, if it is the oldest.
  const Result<std::string> bytes = Read(project_path, version);
  if (!bytes.ok()) return bytes.status();
  if (Status kept = Keep(project_path, kBeforeBringBack, time_s); !kept.ok()) return kept;
  const Result<std::unique_ptr<FileLock>> lock = files_.Lock(project_path);
  return lock.ok() ? WriteWhole(files_, project_path, bytes.value()) : lock.status();
}

}  // namespace tarvok::store
