#include "store/new_project.h"

#include "store/number_text.h"
#include "store/whole_write.h"

namespace tarvok::store {
namespace {

constexpr std::string_view kCountrySection = "Country";
constexpr int kCountryDigits = 3;

bool IsCountry(std::string_view section, std::int64_t countries) {
  const std::int64_t number = Val(section);
  return number >= 1 && number <= countries && Padded(number, kCountryDigits) == section;
}

}  // namespace

std::string InFolder(const std::string& folder, std::string_view name) {
  std::string path = folder;
  if (!path.empty() && path.back() != '/') path += '/';
  return path.append(name);
}

Result<std::shared_ptr<const IniText>> ReadSystemFile(ProjectStore& store, const std::string& path) {
  const auto unusable = [](ErrorKind kind, const std::string& why) {
    return Status(kind, std::string(kNoSystemFile) + "\r\n" + why);
  };
  const Result<std::string> bytes = store.files().Read(path);
  if (!bytes.ok()) {
    const ErrorKind kind = bytes.status().kind();
    if (kind == ErrorKind::kNotFound) return Status(kind, std::string(kNoSystemFile));
    return unusable(kind, bytes.status().message());
  }
  auto text = std::make_shared<const IniText>(bytes.value());
  if (IsProject(*text)) return std::shared_ptr<const IniText>(std::move(text));
  return unusable(ErrorKind::kBadData, path + ": not a system file");
}

Status NewDefault(ProjectStore& store, const std::string& system_file, const std::string& file) {
  const Result<std::shared_ptr<const IniText>> system = ReadSystemFile(store, system_file);
  if (!system.ok()) return system.status();

  const IniText& text = *system.value();
  IniEdit edit(text);
  const std::int64_t countries = Val(text.Get(kCountrySection, "Cnt"));
  for (const std::string_view section : text.Sections()) {
    if (IsCountry(section, countries)) edit.DeleteSection(section);
  }
  edit.DeleteSection(kCountrySection);

  const auto not_copied = [](const Status& why) {
    return Status(why.kind(), std::string(kNoSystemFile) + "\r\n" + why.message());
  };
  const Result<std::unique_ptr<FileLock>> lock = store.files().Lock(file);
  if (!lock.ok()) return not_copied(lock.status());
  const Status written = WriteWhole(store.files(), file, edit.Bytes());
  return written.ok() ? written : not_copied(written);
}

}  // namespace tarvok::store
