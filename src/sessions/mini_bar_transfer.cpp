#include "sessions/mini_bar_transfer.h"

#include <string>
#include <vector>

#include "sections/image_writer.h"
#include "sections/system/mini_bar.h"
#include "sessions/get_whole.h"
#include "sessions/log_in.h"
#include "sessions/open_connection.h"
#include "sessions/send_section.h"
#include "sessions/store_loaded.h"
#include "store/whole_write.h"

namespace tarvok::sessions {
namespace {

constexpr int kMiniBarFrom = 106;
constexpr int kNoHighestVersion = 65535;
constexpr std::string_view kSendFailed = "Sending Mini Bar Failed (RE)";

/** For each record: the two bytes of the request, the name and the price. */
constexpr std::int64_t kBytesOfLoad = kMiniBarRows * (2 + kMiniBarLoaded);

constexpr LogInWords kSendWords = {.mode = ExchangeMode::kMiniBar,
                                   .lowest_version = kMiniBarFrom,
                                   .highest_version = kNoHighestVersion,
                                   .too_old = "EPROM is old version, Please contact vender for upgrade.",
                                   .words_before_normal = true};

constexpr LogInWords LoadWords() {
  LogInWords words = kLoadWords;
  words.mode = ExchangeMode::kMiniBar;
  words.lowest_version = kMiniBarFrom;
  words.too_old = "Eprom is old version, Please contact vender for upgrade software.";
  return words;
}

bool SendRecords(Transfer& transfer) {
  const std::shared_ptr<const IniText> project = ProjectToSend(transfer);
  if (project == nullptr) return false;
  transfer.report().Start("Sending Mini Bar data...");
  for (int number = 1; number <= kMiniBarRows; ++number) {
    ImageWriter record(kMiniBarRecordSize);
    EncodeMiniBarRecord(*project, number, record);
    if (!record.ok() || !transfer.messages().SendMiniBar(number - 1, record.bytes())) {
      transfer.report().Failed();
      if (!record.ok()) transfer.report().LogBoth(record.error());
      return transfer.report().Fail(kSendFailed);
    }
    transfer.report().Progress(number, kMiniBarRows);
  }
  transfer.report().Finished();
  return true;
}

bool RunMiniBarSend(Transfer& transfer) {
  if (!OpenConnection(transfer) || !LogIn(transfer, kSendWords) || !SendRecords(transfer)) return false;
  transfer.report().LogLine("Send Mini Bar Data Config Finished !!!");
  return EndSending(transfer, "Set Mode Failed (RE)");
}

/** A mini bar record as received. */
struct Loaded {
  std::string name;
  int price = 0;
};

bool GetRecords(Transfer& transfer, std::vector<Loaded>& records) {
  for (int number = 1; number <= kMiniBarRows; ++number) {
    const WholeRequest request = {.ask = [&] { return transfer.messages().GetMiniBar(number - 1); },
                                  .answer_pause_s = kAnswerPause_s,
                                  .refused = "Request for Get MiniBar Error (RE)",
                                  .getting = "Getting MiniBar " + std::to_string(number)};
    if (!GetWhole(transfer, request)) return false;
    const MessageState& state = transfer.messages().state();
    records.push_back({state.mini_bar_name, state.mini_bar_count});
    transfer.report().Progress(number, kMiniBarRows);
  }
  return true;
}

bool RunMiniBarLoad(Transfer& transfer) {
  if (!OpenConnection(transfer) || !LogIn(transfer, LoadWords())) return false;
  const std::int64_t start_ms = transfer.parts().events.Tick_ms();
  std::vector<Loaded> records;
  transfer.pace().BeginTransfer(kBytesOfLoad);
  if (!GetRecords(transfer, records)) return false;
  transfer.pace().EndTransfer();
  const Status stored = UpdateTemporary(transfer, [&](IniEdit& edit) {
    for (int number = 1; number <= kMiniBarRows; ++number) {
      const Loaded& record = records[static_cast<std::size_t>(number) - 1];
      DecodeMiniBarRecord(record.name, record.price, number, edit);
    }
  });
  if (!stored.ok()) return transfer.report().Fail(stored.message());
  return EndLoading(transfer, "Get All Config Finished.", start_ms);
}

/**
 * The temporary project starts as a copy of the open one, because a Yes at the end replaces the whole file.
 */
bool CopyToTemporary(Transfer& transfer) {
  FileSystem& files = transfer.store().files();
  const Result<std::string> open = files.Read(transfer.parts().project_file);
  if (!open.ok()) return transfer.report().Fail(open.status().message());
  const Status copied = WriteWhole(files, transfer.temporary->path(), open.value(), Flush::kLater);
  return copied.ok() || transfer.report().Fail(copied.message());
}

}  // namespace

bool SendMiniBarList(Transfer& transfer) {
  if (!transfer.view().Ask("Do you want to send data Mini Bar?")) return false;
  transfer.Begin("Send Mini Bar");
  const bool sent = RunMiniBarSend(transfer);
  transfer.CleanUp();
  if (sent) transfer.report().Box(BoxKind::kInformation, "Send Mini Bar Data Config Finished");
  return sent;
}

bool LoadMiniBarList(Transfer& transfer) {
  if (!transfer.view().Ask(kLoadQuestion)) return false;
  if (!BeginTemporary(transfer) || !CopyToTemporary(transfer)) return false;
  transfer.Begin("Load MiniBar");
  const bool loaded = RunMiniBarLoad(transfer);
  transfer.CleanUp();
  if (loaded) AdviseAnotherLoad(transfer);
  return loaded && StoreLoaded(transfer);
}

}  // namespace tarvok::sessions
