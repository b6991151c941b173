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

/** How the last transfer of a project went; kept per project in the per-user settings. */
struct LastTransfer {
  std::int64_t time_s = 0;  // of its end, in seconds since 1970
  bool loaded = false;      // from the exchange; else sent to it
  TransferEnd end = TransferEnd::kFailed;
  std::string what;  // as its button says, "Send Data Config"
};

/** "finished": the end in a sentence. */
std::string_view EndText(TransferEnd end);
void KeepLastTransfer(SettingsStore& settings, FileSystem& files, const std::string& project_path,
                      const LastTransfer& transfer);
/** Nothing for a project without one, and where somebody wrote rubbish. */
std::optional<LastTransfer> FindLastTransfer(SettingsStore& settings, FileSystem& files,
                                             const std::string& project_path);

/** The project at that path is another one from now on. */
void ForgetLastTransfer(SettingsStore& settings, FileSystem& files, const std::string& project_path);

}  // namespace tarvok::desktop
