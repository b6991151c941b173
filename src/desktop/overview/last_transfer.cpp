#include "desktop/overview/last_transfer.h"

#include <algorithm>
#include <iterator>

#include "store/field_list.h"
#include "store/history.h"
#include "store/number_text.h"

namespace tarvok::desktop {
namespace {

constexpr std::string_view kGroup = "Last Transfers";
constexpr std::string_view kLoaded = "loaded";
constexpr std::string_view kSent = "sent";

struct End {
  TransferEnd end;
  std::string_view kept;
  std::string_view shown;
};
constexpr End kEnds[] = {{TransferEnd::kDone, "done", "finished"},
                         {TransferEnd::kFailed, "failed", "failed"},
                         {TransferEnd::kNotTaken, "not taken", "not taken"},
                         {TransferEnd::kCancelled, "cancelled", "cancelled"}};

const End& EndOf(TransferEnd end) {
  return *std::find_if(std::begin(kEnds), std::end(kEnds), [&](const End& each) { return each.end == end; });
}

}  // namespace

std::string_view EndText(TransferEnd end) {
  return EndOf(end).shown;
}

void KeepLastTransfer(SettingsStore& settings, FileSystem& files, const std::string& project_path,
                      const LastTransfer& transfer) {
  std::string text = std::to_string(transfer.time_s);
  text.append("|").append(transfer.loaded ? kLoaded : kSent).append("|");
  text.append(EndOf(transfer.end).kept).append("|").append(transfer.what);
  settings.Set(kGroup, ProjectIdentity(files, project_path), text);
}

std::optional<LastTransfer> FindLastTransfer(SettingsStore& settings, FileSystem& files,
                                             const std::string& project_path) {
  const std::string text = settings.Get(kGroup, ProjectIdentity(files, project_path));
  const FieldList fields(text);
  const std::int64_t time_s = Val(fields[1]);
  const auto* end = std::find_if(std::begin(kEnds), std::end(kEnds),
                                 [&](const End& each) { return each.kept == fields[3]; });
  const bool known = (fields[2] == kLoaded || fields[2] == kSent) && end != std::end(kEnds);
  if (!known || time_s <= 0 || fields[4].empty()) return std::nullopt;
  return LastTransfer{time_s, fields[2] == kLoaded, end->end, std::string(fields[4])};
}

void ForgetLastTransfer(SettingsStore& settings, FileSystem& files, const std::string& project_path) {
  settings.Set(kGroup, ProjectIdentity(files, project_path), {});
}

}  // namespace tarvok::desktop
