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

/** How a story ended, as far as its cleaning up differs. */
enum class End { kDone, kFailed, kFailedSection };

/** Asks, with the compare box, and keeps the box in the project. */
bool AskBefore(Transfer& transfer) {
  bool compare = transfer.settings().compare;
  if (!transfer.view().AskWithCompare("Do you want to send data config?", compare)) return false;
  transfer.set_compare(compare);
  const std::string value = compare ? "1" : "";
  const std::string& project = transfer.parts().project_file;
  if (transfer.store().GetIniValue(project, kHeaderSection, connection_key::kCompare) == value) return true;
  const Status stored =
      transfer.store().SetIniValue(project, kHeaderSection, connection_key::kCompare, value);
  if (!stored.ok()) transfer.Box(BoxKind::kCritical, stored.message());
  return true;
}

/** What a send to this version carries: the clock, and each section behind four bytes that name it. Where all is compared,
 * one that goes twice goes once, and is asked for by two bytes and comes back. */
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
  transfer.Start(kTimeProgress);
  if (!transfer.messages().SendTime()) {
    transfer.Failed();
    return transfer.Fail(kTimeFailed);
  }
  transfer.Finished();
  transfer.Progress(kTimeBar, kBarEnd);
  return true;
}

bool SendSections(Transfer& transfer, const IniText& project) {
  std::vector<std::uint8_t> image;
  for (const Section* section : SendPlan(transfer.version())) {
    if (!SendSection(transfer, *section, project, image)) return false;
    if (section->moves_bar) transfer.Progress(section->number, kBarEnd);
  }
  return true;
}

void ShowStatistics(Transfer& transfer) {
  const TransferStatistics& counted = transfer.line().statistics();
  const std::int64_t ms = counted.send_ms;
  const std::int64_t rate = ms == 0 ? 0 : (counted.bytes_sent * 1000 + ms / 2) / ms;  // bytes a second
  transfer.LogLine("Byte Sent = " + std::to_string(counted.bytes_sent) + " Bytes");
  transfer.LogLine("Packat Sent = " + std::to_string(counted.packets_sent) + " PKTs");
  transfer.LogLine("Response Error = " + std::to_string(counted.response_errors) + " times");
  transfer.LogLine("Enquiry = " + std::to_string(counted.enquiry_count) + " times");
  transfer.LogLine("Average Transfer Rate : " + FormatThousandths(rate) + " KBps");
}

/** A line that damages frames has most likely damaged one that its check byte did not show, and an answer that comes
 * twice names no pack: it is taken for the next one's. If the exchange then refuses that one, its word comes too late to have
 * it sent again. `refused` is how many messages it refused. */
void AdviseCompare(Transfer& transfer, std::int64_t refused) {
  const TransferStatistics& counted = transfer.line().statistics();
  const std::int64_t late = counted.late_answers + counted.enquiry_count;
  if (counted.frames_damaged == 0 && counted.BrokenOff == 0 && late == 0 && refused == 0) return;
  const std::string why =
      counted.frames_damaged > 0 ? "The line damaged " + std::to_string(counted.frames_damaged) +
                                       " frames, and one in 256 of such passes its check. "
      : counted.BrokenOff > 0 ? std::to_string(counted.BrokenOff) +
                                    " answers broke off, and nothing checks the bytes of the others. "
      : late > 0
          ? std::to_string(late) + " answers came late, and one that comes twice is taken for the next. "
          : "The exchange refused " + std::to_string(refused) + " messages, and not each was sent again. ";
  transfer.view().Advise(why + (transfer.version() >= kLowestComparedVersion
                                    ? "Send once more with compare."
                                    : "Load the configuration and compare it with the project."));
}

End RunSend(Transfer& transfer) {
  if (!OpenConnection(transfer) || !LogIn(transfer, {})) return End::kFailed;
  transfer.Progress(0, kBarEnd);
  transfer.line().RestartSendTime();
  const TransferStatistics& counted = transfer.line().statistics();
  const std::int64_t refused_before = counted.response_errors;  // passwords
  const bool comparable = transfer.version() >= kLowestComparedVersion;
  if (transfer.settings().compare && !comparable) {
    transfer.Note("Nothing is compared: only exchanges from version " +
                  FormatGrouped(kLowestComparedVersion) +
                  " on can do that. Load the configuration afterwards and compare it with the project.");
  }
  const bool compare = transfer.settings().compare && comparable;
  transfer.BeginPace(BytesOfSend(transfer.version(), compare));
  const std::shared_ptr<const IniText> project = transfer.ProjectToSend();
  if (project == nullptr) return End::kFailedSection;
  if (compare) {
    if (!SendClock(transfer) || !SendSectionsCompared(transfer, *project)) return End::kFailed;
  } else if (!SendClock(transfer) || !SendSections(transfer, *project)) {
    return End::kFailedSection;
  }
  transfer.Progress(kBarEnd, kBarEnd);
  transfer.EndPace();
  transfer.LogLine("Sending All Data Config Finished !!!");
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
  transfer.Begin(TransferDirection::kWrite, "Send Data Config");
  const End end = RunSend(transfer);
  if (end == End::kFailedSection) {
    transfer.CleanUpKeepingPort();
  } else {
    transfer.CleanUp();
  }
  if (end == End::kDone) transfer.Box(BoxKind::kInformation, "Send All Data Config Finished");
  return end == End::kDone;
}

}  // namespace tarvok::sessions
