#include "sessions/store_loaded.h"

#include <optional>
#include <string>

#include "sessions/modem_call.h"
#include "store/new_project.h"
#include "store/number_text.h"
#include "store/whole_write.h"

namespace tarvok {
namespace {

/** Where the loaded project goes; nothing where the user does not want it anywhere. */
std::optional<std::string> ChooseTarget(Transfer& transfer) {
  if (transfer.view().Ask(kReplaceQuestion)) return transfer.parts().load_target;
  while (std::optional<std::string> name = transfer.view().AskSaveName()) {
    if (name->empty()) break;
    if (!transfer.store().files().Identify(*name).exists || transfer.view().Ask(kFileExists)) return name;
  }
  return std::nullopt;
}

Status CopyTo(FileSystem& files, const std::string& from, const std::string& to) {
  const Result<std::string> bytes = files.Read(from);
  if (!bytes.ok()) return bytes.status();
  const Result<std::unique_ptr<FileLock>> lock = files.Lock(to);
  return lock.ok() ? WriteWhole(files, to, bytes.value()) : lock.status();
}

}  // namespace

bool DeleteOldTemporary(Transfer& transfer) {
  FileSystem& files = transfer.store().files();
  const std::string& file = transfer.parts().temp_file;
  if (!files.Identify(file).exists) return true;
  const Status removed = files.Remove(file);
  return removed.ok() || transfer.Fail(removed.message());
}

Status UpdateTemporary(Transfer& transfer, const std::function<void(IniEdit&)>& change) {
  return transfer.store().Update(transfer.parts().temp_file, change, Flush::kLater);
}

bool EndLoading(Transfer& transfer, std::string_view last_words, std::int64_t start_ms) {
  const std::int64_t ms = transfer.parts().events.Tick_ms() - start_ms;
  const std::int64_t bytes = transfer.line().statistics().BytesReceived;
  const std::int64_t rate = ms == 0 ? 0 : (bytes * 1000 + ms / 2) / ms;
  transfer.LogLine(last_words);
  transfer.LogLine("Averate Recieved Rate : " + FormatThousandths(rate) + " KBps");
  const Status written =
      UpdateTemporary(transfer, [&](IniEdit& edit) { WriteConnection(edit, transfer.settings()); });
  // All has come: whether the exchange takes the mode changes nothing any more.
  [[maybe_unused]] const bool normal = transfer.messages().SendSetMode(ExchangeMode::kNormal);
  if (transfer.mode() == LinkMode::kModem) HangUpModem(transfer.line());
  return written.ok() || transfer.Fail(written.message());
}

bool StoreLoaded(Transfer& transfer) {
  const std::optional<std::string> target = ChooseTarget(transfer);
  if (!target) return true;
  const Status copied = CopyTo(transfer.store().files(), transfer.parts().temp_file, *target);
  return copied.ok() || transfer.Fail(copied.message());
}

}  // namespace tarvok
