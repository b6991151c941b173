#include "desktop/last_transfer.h"

#include "store/field_list.h"
#include "store/history.h"
#include "store/number_text.h"

namespace tarvok {
namespace {

constexpr std::string_view kGroup = "Last Transfers";
constexpr std::string_view kLoaded = "loaded";
constexpr std::string_view kSent = "sent";
constexpr std::string_view kDone = "done";
constexpr std::string_view kFailed = "failed";

}  // namespace

void KeepLastTransfer(SettingsStore& settings, FileSystem& files, const std::string& project_path,
                      const LastTransfer& transfer) {
  std::string text = std::to_string(transfer.time_s);
  text.append("|").append(transfer.loaded ? kLoaded : kSent).append("|");
  text.append(transfer.done ? kDone : kFailed).append("|").append(transfer.what);
  settings.Set(kGroup, ProjectIdentity(files, project_path), text);
}

std::optional<LastTransfer> FindLastTransfer(SettingsStore& settings, FileSystem& files,
                                             const std::string& project_path) {
  const std::string text = settings.Get(kGroup, ProjectIdentity(files, project_path));
  const FieldList fields(text);
  const std::int64_t time_s = Val(fields[1]);
  const bool known =
      (fields[2] == kLoaded || fields[2] == kSent) && (fields[3] == kDone || fields[3] == kFailed);
  if (!known || time_s <= 0 || fields[4].empty()) return std::nullopt;
  return LastTransfer{time_s, fields[2] == kLoaded, fields[3] == kDone, std::string(fields[4])};
}

}  // namespace tarvok
