#include "sessions/billing_files.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "sessions/log_in.h"
#include "sessions/open_connection.h"
#include "store/ini_text.h"
#include "store/new_project.h"

namespace tarvok::sessions {
namespace {

constexpr std::string_view kCannotSend = "Cannot send data (RE)";
constexpr LogInWords kBillingWords = {
    .mode = ExchangeMode::kBilling, .password_first = true, .lowest_version = 0};
constexpr int kMostSectors = 256;  // the sector number is a byte

/** A table's file; its index in the list is the table's number on the wire. */
struct BillingFile {
  std::string_view name;
  std::size_t sector_size;
};

constexpr std::array<BillingFile, 14> kFiles = {{{"tbl0.bil", 512},
                                                 {"tbl001.bil", 512},
                                                 {"tbl1.bil", 512},
                                                 {"tblC0.bil", 510},
                                                 {"tblC001.bil", 510},
                                                 {"tblC1.bil", 510},
                                                 {"tbl56.bil", 510},
                                                 {"tbl7.bil", 512},
                                                 {"tbl8.bil", 510},
                                                 {"tbl9.bil", 510},
                                                 {"tbl10.bil", 504},
                                                 {"tblP1.bil", 512},
                                                 {"tbl08.bil", 512},
                                                 {"tblC08.bil", 510}}};

/** Only the newest version has the last file. */
std::size_t FilesOf(int version) {
  constexpr int kLastFileFrom = 110;
  return version < kLastFileFrom ? kFiles.size() - 1 : kFiles.size();
}

using FolderPaths = std::array<std::optional<std::string>, kFiles.size()>;

/** The path of each file in the folder; none if the folder does not exist. */
Result<FolderPaths> FindFiles(FileSystem& files, const std::string& folder) {
  FolderPaths paths;
  const Result<std::vector<std::string>> names = files.List(folder);
  if (!names.ok()) {
    if (names.status().kind() == ErrorKind::kNotFound) return paths;
    return names.status();
  }
  for (std::size_t i = 0; i < kFiles.size(); ++i) {
    for (const std::string& name : names.value()) {
      if (SameName(name, kFiles[i].name)) paths[i] = InFolder(folder, name);
    }
  }
  return paths;
}

bool AskBefore(Transfer& transfer, const FolderPaths& paths) {
  if (!transfer.view().Ask("Do you want to send Billing File?")) return false;
  const auto found =
      std::count_if(paths.begin(), paths.end(), [](const auto& path) { return path.has_value(); });
  if (found == 0) return transfer.report().Fail("No Billing Files");
  return static_cast<std::size_t>(found) == kFiles.size() ||
         transfer.view().Ask("This folder didn't contain some billing file, Do you still want to send data?");
}

bool SendFile(Transfer& transfer, int table, std::string_view bytes, std::size_t sector_size) {
  // Check before the first sector: half a table would be worse than none.
  if (bytes.size() > kMostSectors * sector_size) return transfer.report().Fail(kCannotSend);
  for (int sector = 0; !bytes.empty(); ++sector) {
    transfer.report().LogLine("Sending Table ==>  " + std::to_string(table) + " , Sector ==> " +
                              std::to_string(sector));
    const std::string_view part = bytes.substr(0, sector_size);
    const std::vector<std::uint8_t> data(part.begin(), part.end());
    if (!transfer.messages().SendBillingTable(table, sector, data))
      return transfer.report().Fail(kCannotSend);
    bytes.remove_prefix(part.size());
  }
  return true;
}

bool SendFiles(Transfer& transfer, const std::string& folder, const FolderPaths& paths) {
  const std::size_t count = FilesOf(transfer.version);
  for (std::size_t i = 0; i < count; ++i) {
    transfer.report().Progress(static_cast<int>(i), static_cast<int>(count));
    if (!paths[i]) {
      transfer.report().LogLine("File [" + InFolder(folder, kFiles[i].name) + "] lost");
      transfer.report().LogLine("Trying to send next file....");
      continue;
    }
    // Otherwise the exchange would lack a table that the user sees in the folder.
    const Result<std::string> bytes = transfer.store().files().Read(*paths[i]);
    if (!bytes.ok()) return transfer.report().Fail(bytes.status().message());
    if (!SendFile(transfer, static_cast<int>(i), bytes.value(), kFiles[i].sector_size)) return false;
  }
  transfer.report().Progress(static_cast<int>(count), static_cast<int>(count));
  return true;
}

}  // namespace

bool IsBillingFile(std::string_view name) {
  return std::any_of(kFiles.begin(), kFiles.end(),
                     [&](const BillingFile& file) { return SameName(file.name, name); });
}

bool SendBillingFiles(Transfer& transfer, const std::string& folder) {
  constexpr std::string_view kCompleted = "Send billing files completed.";
  const Result<FolderPaths> found = FindFiles(transfer.store().files(), folder);
  if (!found.ok()) return transfer.report().Fail(found.status().message());
  const FolderPaths& paths = found.value();
  if (!AskBefore(transfer, paths)) return false;
  transfer.Begin("Send Billing Files");
  bool sent =
      OpenConnection(transfer) && LogIn(transfer, kBillingWords) && SendFiles(transfer, folder, paths);
  if (sent) {
    transfer.report().LogLine(kCompleted);
    sent = EndSending(transfer, kCannotSend);
  }
  transfer.CleanUp();
  if (sent) transfer.report().Box(BoxKind::kInformation, kCompleted);
  return sent;
}

}  // namespace tarvok::sessions
