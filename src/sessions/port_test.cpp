#include "sessions/port_test.h"

#include <random>

#include "sections/registry.h"
#include "sessions/open_connection.h"
#include "sessions/session_words.h"
#include "store/new_project.h"
#include "store/whole_write.h"

namespace tarvok::sessions {

int Rand(int low, int high) {
  static std::mt19937 generator{std::random_device{}()};
  return high <= low ? low : std::uniform_int_distribution<int>(low, high - 1)(generator);
}

namespace {

constexpr int kPortSection = 4;
constexpr std::string_view kSentFile = "temp.txt";
constexpr std::string_view kGotFile = "TempGet.txt";

bool OpenSerialOnly(Transfer& transfer) {
  if (transfer.transport().port != PortKind::kSerial) return transfer.report().Fail(kPortFailed);
  return OpenConnection(transfer);
}

bool Send(Transfer& transfer, const std::string& data) {
  if (!OpenSerialOnly(transfer)) return false;
  transfer.report().Start("Sending Port Test...");
  const std::vector<std::uint8_t> image(data.begin(), data.end());
  constexpr std::string_view kDots = "................................";
  const bool sent = transfer.messages().SendConfig(kPortSection, image);
  return transfer.report().End(sent, "Send Port Test failed (RE)", kDots, kDots);
}

bool Get(Transfer& transfer) {
  MessageState& state = transfer.messages().state();
  if (!OpenSerialOnly(transfer)) return false;
  if (!transfer.messages().SendSetMode(ExchangeMode::kConfiguration)) {
    return transfer.report().Fail("Change to set mode failed (RE)");
  }
  state.error_came = false;
  state.section_done = false;
  if (!transfer.messages().GetConfig(kPortSection))
    return transfer.report().FailInLog("Get Config Error !!!");
  transfer.waits().Until([&] { return transfer.messages().IsWhole() || state.error_came; },
                         EventServer::kForever);
  return transfer.messages().IsWhole() || transfer.report().FailInLog("..........................Failed");
}

bool Store(Transfer& transfer, const std::string& path, std::string_view bytes) {
  const Status written = WriteWhole(transfer.store().files(), path, bytes);
  return written.ok() || transfer.report().Fail(written.message());
}

}  // namespace

bool SendPortTest(Transfer& transfer, const std::string& folder) {
  const Result<std::string> data = transfer.store().files().Read(InFolder(folder, kSentFile));
  if (!data.ok()) return transfer.report().Fail(data.status().message());
  if (data.value().size() != kPortTestSize) {
    return transfer.report().Fail(std::string(kSentFile) + ": not " + std::to_string(kPortTestSize) +
                                  " bytes");
  }
  transfer.Begin();
  const bool sent = Send(transfer, data.value());
  transfer.CleanUp();
  if (sent) transfer.report().Box(BoxKind::kInformation, "Send Test Port Finish !!!");
  return sent;
}

bool GetPortTest(Transfer& transfer, const std::string& folder) {
  transfer.Begin();
  bool got = Get(transfer);
  if (got) {
    const auto bytes = transfer.messages().section_image().bytes().first(kPortTestSize);
    got = Store(transfer, InFolder(folder, kGotFile), std::string(bytes.begin(), bytes.end()));
  }
  if (got) transfer.report().LogLine("Finish !!!");
  transfer.CleanUp();
  if (got) transfer.report().Box(BoxKind::kInformation, "Finish!!!");
  return got;
}

bool WritePortTestData(Transfer& transfer, const std::string& folder) {
  std::string bytes;
  for (int i = 0; i < kPortTestSize / 4; ++i) {
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(i >> shift & 0xFF);
  }
  if (!Store(transfer, InFolder(folder, kSentFile), bytes)) return false;
  transfer.report().Box(BoxKind::kInformation, "finish");
  return true;
}

}  // namespace tarvok::sessions
