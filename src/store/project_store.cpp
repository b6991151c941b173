#include "store/project_store.h"

#include "store/header_keys.h"
#include "store/number_text.h"
#include "store/whole_write.h"

namespace tarvok::store {

Result<std::shared_ptr<const IniText>> ProjectStore::Load(const std::string& file) {
  const FileIdentity identity = files_.Identify(file);
  Cached& cached = cache_[file];
  if (cached.text != nullptr && identity.settled && cached.identity == identity) return cached.text;

  // Take the identity before reading: a change in between then shows as a difference on the next call.
  Result<std::string> bytes = files_.Read(file);
  if (!bytes.ok()) {
    cache_.erase(file);
    return bytes.status();
  }
  cached.identity = identity;
  // A file that was only touched, or is too recent to be trusted, keeps its text: callers that keep the
  // pointer then know that nothing has changed.
  if (cached.text != nullptr && cached.text->bytes() == bytes.value()) return cached.text;
  cached.text = std::make_shared<const IniText>(std::move(bytes).value());
  return cached.text;
}

std::shared_ptr<const IniText> ProjectStore::Snapshot(const std::string& file) {
  static const auto kEmpty = std::make_shared<const IniText>();
  const Result<std::shared_ptr<const IniText>> loaded = Load(file);
  return loaded.ok() ? loaded.value() : kEmpty;
}

Status ProjectStore::Update(const std::string& file, const std::function<void(IniEdit&)>& change,
                            Flush flush) {
  const Result<std::unique_ptr<FileLock>> lock = files_.Lock(file);
  if (!lock.ok()) return lock.status();

  const Result<std::shared_ptr<const IniText>> loaded = Load(file);
  if (!loaded.ok() && loaded.status().kind() != ErrorKind::kNotFound) return loaded.status();

  const IniText missing;
  const IniText& base = loaded.ok() ? *loaded.value() : missing;
  IniEdit edit(base);
  change(edit);
  if (!edit.changed()) return {};
  const std::string bytes = edit.Bytes();
  if (bytes == base.bytes()) return {};
  return WriteWhole(files_, file, bytes, flush);
}

std::string ProjectStore::GetIniValue(const std::string& file, std::string_view section,
                                      std::string_view key) {
  return std::string(Snapshot(file)->Get(section, key));
}

Status ProjectStore::SetIniValue(const std::string& file, std::string_view section, std::string_view key,
                                 std::string_view value) {
  return Update(file, [&](IniEdit& edit) { edit.Set(section, key, value); });
}

Status ProjectStore::DeleteIniKey(const std::string& file, std::string_view section, std::string_view key) {
  return Update(file, [&](IniEdit& edit) { edit.DeleteKey(section, key); });
}

Status ProjectStore::DeleteIniSection(const std::string& file, std::string_view section) {
  return Update(file, [&](IniEdit& edit) { edit.DeleteSection(section); });
}

bool IsProject(const IniText& text) {
  return SameName(Trim(text.Get(kHeaderSection, kHeaderTag)), kProjectTag);
}

}  // namespace tarvok::store
