#include "sessions/send_config.h"

#include <string>

#include "sections/registry.h"
#include "sessions/compare_bytes.h"
#include "sessions/log_in.h"
#include "sessions/open_connection.h"
#include "sessions/send_section.h"
#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::sessions {
namespace {

/** How a session ended, as far as it matters for cleaning up. */
enum class End { kDone, kFailed, kFailedSection };

/** Asks, with the compare check box, and stores the box's state in the project. */
bool AskBefore(Transfer& transfer) {
  bool compare = transfer.settings().Compares();
  if (!transfer.view().AskWithCompare("Do you want to send data config?", compare)) return false;
  transfer.settings().compare = compare ? "1" : "";
  const std::string& value = transfer.settings().compare;
  const std::string_view key = KeyName(&ConnectionSettings::compare);
  const std::string& project = transfer.parts().project_file;
  if (transfer.store().GetIniValue(project, kHeaderSection, key) == value) return true;
  const Status stored = transfer.store().SetIniValue(project, kHeaderSection, key, value);
  if (!stored.ok()) transfer.report().Box(BoxKind::kCritical, stored.message());
  return true;
}

/**
 * The bytes sent to this version: the clock, and each section with the four bytes that name it. When
 * comparing, sections that are otherwise repeated are sent once, requested with two bytes and received again.
 */
std::int64_t BytesOfSend(int version, bool compare) {
  constexpr int kSectionHead = 4;
  constexpr int kAsk = 2;
  std::int64_t bytes = kTimeSize;
  const Section* last = nullptr;
  for (const Section* section : SendPlan(version)) {
    if (compare && section == last) continue;
    last = section;
    bytes += kSectionHead + SizeAt(section->number, version, Direction::kSend);
    if (compare) bytes += kAsk + SizeAt(section->number, version, Direction::kLoad);
  }
  return bytes;
}

bool SendClock(Transfer& transfer) {
  transfer.report().Start(kTimeProgress);
  if (!transfer.report().End(transfer.messages().SendTime(), kTimeFailed)) return false;
  transfer.report().Progress(kTimeBar, kBarEnd);
  return true;
}

bool SendSections(Transfer& transfer, const IniText& project) {
  std::vector<std::uint8_t> image;
  for (const Section* section : SendPlan(transfer.version)) {
    if (!SendSection(transfer, *section, project, image)) return false;
    if (section->moves_bar) transfer.report().Progress(section->number, kBarEnd);
  }
  return true;
}

void ShowStatistics(Transfer& transfer) {
  const TransferStatistics& counted = transfer.line().statistics();
  const std::int64_t ms = counted.send_ms;
  const std::int64_t rate = ms == 0 ? 0 : (counted.bytes_sent * 1000 + ms / 2) / ms;  // bytes per second
  transfer.report().LogLine("Byte Sent = " + std::to_string(counted.bytes_sent) + " Bytes");
  transfer.report().LogLine("Packat Sent = " + std::to_string(counted.packets_sent) + " PKTs");
  transfer.report().LogLine("Response Error = " + std::to_string(counted.response_errors) + " times");
  transfer.report().LogLine("Enquiry = " + std::to_string(counted.enquiry_count) + " times");
  transfer.report().LogLine("Average Transfer Rate : " + FormatThousandths(rate) + " KBps");
}

/**
 * Advises to check the transfer if errors may have gone undetected. A line that damages frames may have
 * damaged one without its check byte showing it. A reply that comes twice does not name a pack, so it counts
 * as the reply to the next one; if the exchange then refuses that one, the refusal comes too late to repeat
 * it. `refused` is the number of messages that the exchange refused.
 */
void AdviseCompare(Transfer& transfer, std::int64_t refused) {
  const TransferStatistics& counted = transfer.line().statistics();
  const std::int64_t late = counted.late_answers + counted.enquiry_count;
  if (counted.frames_damaged == 0 && counted.broken_off == 0 && late == 0 && refused == 0) return;
  const std::string why =
      counted.frames_damaged > 0 ? "The line damaged " + std::to_string(counted.frames_damaged) +
                                       " frames; about one in 256 damaged frames passes the check. "
      : counted.broken_off > 0 ? std::to_string(counted.broken_off) +
                                     " replies broke off, and nothing checks the bytes of the others. "
      : late > 0 ? std::to_string(late) + " replies came late, and a repeated reply counts as the next one. "
                 : "The exchange refused " + std::to_string(refused) +
                       " messages, and not all of them were sent again. ";
  transfer.view().Advise(why + (transfer.version >= kLowestComparedVersion
                                    ? "Send again with compare."
                                    : "Load the configuration and compare it with the project."));
}

End RunSend(Transfer& transfer) {
  if (!OpenConnection(transfer) || !LogIn(transfer, {})) return End::kFailed;
  transfer.report().Progress(0, kBarEnd);
  transfer.line().RestartSendTime();
  const TransferStatistics& counted = transfer.line().statistics();
  const std::int64_t refused_before = counted.response_errors;  // wrong passwords
  const bool comparable = transfer.version >= kLowestComparedVersion;
  if (transfer.settings().Compares() && !comparable) {
    transfer.report().Note("Nothing is compared: that requires exchange version " +
                           FormatGrouped(kLowestComparedVersion) +
                           " or later. Load the configuration afterwards and compare it with the project.");
  }
  const bool compare = transfer.settings().Compares() && comparable;
  transfer.pace().BeginTransfer(BytesOfSend(transfer.version, compare));
  const std::shared_ptr<const IniText> project = ProjectToSend(transfer);
  if (project == nullptr) return End::kFailedSection;
  if (compare) {
    if (!SendClock(transfer) || !SendSectionsCompared(transfer, *project)) return End::kFailed;
  } else if (!SendClock(transfer) || !SendSections(transfer, *project)) {
    return End::kFailedSection;
  }
  transfer.report().Progress(kBarEnd, kBarEnd);
  transfer.pace().EndTransfer();
  transfer.report().LogLine("Sending All Data Config Finished !!!");
  if (!EndSending(transfer, "Set Mode Failed (RE)", "Set Mode to normal ...........................Failed")) {
    return End::kFailed;
  }
  ShowStatistics(transfer);
  if (!compare) AdviseCompare(transfer, counted.response_errors - refused_before);
  return End::kDone;
}

}  // namespace

bool SendConfiguration(Transfer& transfer) {
  if (!AskBefore(transfer)) return false;
  transfer.Begin("Send Data Config");
  const End end = RunSend(transfer);
  if (end == End::kFailedSection) {
    transfer.CleanUpKeepingPort();
  } else {
    transfer.CleanUp();
  }
  if (end == End::kDone) transfer.report().Box(BoxKind::kInformation, "Send All Data Config Finished");
  return end == End::kDone;
}

}  // namespace tarvok::sessions
