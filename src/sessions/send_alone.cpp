#include "sessions/send_alone.h"

#include <string_view>

#include "sections/registry.h"
#include "sessions/log_in.h"
#include "sessions/open_connection.h"
#include "sessions/send_section.h"

namespace tarvok::sessions {
namespace {

constexpr LogInWords kPartWords = {.lowest_version = 101};
constexpr std::string_view kOkDots = ".................";
constexpr std::string_view kFailedDots = "..................";

/** A section with a session of its own, and the texts of that session. */
struct Alone {
  int section;
  std::string_view question;
  std::string_view last_line;
  std::string_view last_box;
};

constexpr Alone kLinkTable = {37, "Do you want to send data PBX Link Table?",
                              "Sending All Data Config Finished !!!", "Send All Data Config Finished"};
constexpr Alone kIpAddress = {44, "Do you want to send new address PBX?", "Send  Data Finished !!!",
                              "Send Data Finished"};

bool RunSendAlone(Transfer& transfer, const Section& section, const Alone& alone) {
  if (!OpenConnection(transfer) || !LogIn(transfer, kPartWords)) return false;
  const std::shared_ptr<const IniText> project = ProjectToSend(transfer);
  if (project == nullptr) return false;
  std::vector<std::uint8_t> image;
  if (!SendSection(transfer, section, *project, image, kOkDots, kFailedDots)) return false;
  transfer.report().LogLine(alone.last_line);
  return EndSending(transfer, "Set Mode Failed (RE)");
}

bool SendAlone(Transfer& transfer, const Alone& alone) {
  if (!transfer.view().Ask(alone.question)) return false;
  transfer.Begin("Send PBX Link Table");  // the new address uses the same heading
  const bool sent = RunSendAlone(transfer, *FindSection(alone.section), alone);
  transfer.CleanUp();
  if (sent) transfer.report().Box(BoxKind::kInformation, alone.last_box);
  return sent;
}

}  // namespace

bool SendLinkTable(Transfer& transfer) {
  return SendAlone(transfer, kLinkTable);
}

bool SendIpAddress(Transfer& transfer) {
  return SendAlone(transfer, kIpAddress);
}

}  // namespace tarvok::sessions
