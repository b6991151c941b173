#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/uses.h"
#include "store/file_system.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

enum class TransferEnd { kDone, kFailed, kNotTaken, kCancelled };

/** The result of a project's last transfer. It is kept for each project in the per-user settings. */
struct LastTransfer {
  std::int64_t time_s = 0;  // when it ended, in seconds since 1970
  bool loaded = false;      // true for a load, false for a send
  TransferEnd end = TransferEnd::kFailed;
  std::string what;  // the text of its button, "Send Data Config"
};

/** The end as part of a sentence: "finished". */
std::string_view EndText(TransferEnd end);
void KeepLastTransfer(SettingsStore& settings, FileSystem& files, const std::string& project_path,
                      const LastTransfer& transfer);
/** nullopt if the project had no transfer or the settings are invalid. */
std::optional<LastTransfer> FindLastTransfer(SettingsStore& settings, FileSystem& files,
                                             const std::string& project_path);

/** Call when another project takes this path. */
void ForgetLastTransfer(SettingsStore& settings, FileSystem& files, const std::string& project_path);

}  // namespace tarvok::desktop
