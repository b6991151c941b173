#include "sessions/store_loaded.h"

#include <optional>
#include <string>
#include <utility>

#include "sessions/modem_call.h"
#include "store/new_project.h"
#include "store/number_text.h"
#include "store/whole_write.h"

namespace tarvok::sessions {
namespace {

/** Where to store the loaded project; nullopt if the user does not want to store it. */
std::optional<std::string> ChooseTarget(Transfer& transfer) {
  if (transfer.view().Ask(kReplaceQuestion)) return transfer.parts().load_target;
  while (std::optional<std::string> name = transfer.view().AskSaveName()) {
    if (name->empty()) break;
    if (!transfer.store().files().Identify(*name).exists || transfer.view().Ask(kFileExists)) return name;
  }
  return std::nullopt;
}

Status CopyTo(FileSystem& files, const std::string& from, const std::string& to, bool may_replace) {
  const Result<std::string> bytes = files.Read(from);
  if (!bytes.ok()) return bytes.status();
  const Result<std::unique_ptr<FileLock>> lock = files.Lock(to);
  if (!lock.ok()) return lock.status();
  // Check again: during a load there is plenty of time for somebody else to create the file.
  if (!may_replace && files.Identify(to).exists) {
    return {ErrorKind::kExists, to + ": a file of this name was created during the load"};
  }
  return WriteWhole(files, to, bytes.value());
}

}  // namespace

bool BeginTemporary(Transfer& transfer) {
  if (transfer.temporary != nullptr) transfer.temporary->Discard();
  Result<std::unique_ptr<TemporaryProject>> made =
      TemporaryProject::Make(transfer.store().files(), transfer.parts().temp_folder);
  if (!made.ok()) return transfer.report().Fail(made.status().message());
  transfer.temporary = std::move(made).value();
  return true;
}

Status UpdateTemporary(Transfer& transfer, const std::function<void(IniEdit&)>& change) {
  return transfer.store().Update(transfer.temporary->path(), change, Flush::kLater);
}

bool EndLoading(Transfer& transfer, std::string_view last_words, std::int64_t start_ms) {
  const std::int64_t ms = transfer.parts().events.Tick_ms() - start_ms;
  const std::int64_t bytes = transfer.line().statistics().bytes_received;
  const std::int64_t rate = ms == 0 ? 0 : (bytes * 1000 + ms / 2) / ms;
  transfer.report().LogLine(last_words);
  transfer.report().LogLine("Averate Recieved Rate : " + FormatThousandths(rate) + " KBps");
  const Status written =
      UpdateTemporary(transfer, [&](IniEdit& edit) { WriteLoadedConnection(edit, transfer.settings()); });
  // Everything has arrived, so it no longer matters whether the exchange accepts the mode.
  [[maybe_unused]] const bool normal = transfer.messages().SendSetMode(ExchangeMode::kNormal);
  if (transfer.transport().port == PortKind::kModem) EndModemCall(transfer.line());
  return written.ok() || transfer.report().Fail(written.message());
}

void AdviseAnotherLoad(Transfer& transfer) {
  const TransferStatistics& counted = transfer.line().statistics();
  const std::int64_t faults =
      counted.frames_damaged + counted.broken_off + counted.late_answers + counted.packs_out_of_step;
  if (faults == 0) return;
  transfer.view().Advise("The line damaged, lost or repeated something " + std::to_string(faults) +
                         " times, and not every such fault is detected. Load again and compare the two.");
}

bool StoreLoaded(Transfer& transfer) {
  const std::optional<std::string> target = ChooseTarget(transfer);
  if (!target) return true;
  const TransferParts& parts = transfer.parts();
  const bool may_replace = parts.may_replace || *target != parts.load_target;
  const std::string& loaded = transfer.temporary->path();
  const Status copied = CopyTo(transfer.store().files(), loaded, *target, may_replace);
  if (!copied.ok()) return transfer.report().Fail(copied.message(), "; the loaded project is in " + loaded);
  transfer.temporary->Discard();
  return true;
}

}  // namespace tarvok::sessions
