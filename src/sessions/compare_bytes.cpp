#include "sessions/compare_bytes.h"

#include <algorithm>
#include <string>

#include "sections/registry.h"
#include "sessions/get_whole.h"
#include "sessions/send_section.h"
#include "sessions/session_words.h"

namespace tarvok::sessions {
namespace {

constexpr int kMostDifferences = 4;

bool ReadBack(Transfer& transfer, const Section& section) {
  return GetWhole(transfer, {.ask = [&] { return transfer.messages().GetConfig(section.number); },
                             .pause_s = kRequestPause_s,
                             .answer_pause_s = kAnswerPause_s,
                             .refused = "Request for Get Config for compare Error (RE)",
                             .getting = "Getting " + std::string(section.name) + " for compare...",
                             .give_up_words = section.GetFailedText()});
}

/** Compares as many bytes as the exchange declared; bytes that were not sent count as 0. */
bool IsSame(const std::vector<std::uint8_t>& sent, const MessageLayer& messages, int received_size) {
  const std::span<const std::uint8_t> image = messages.section_image().bytes();
  const auto size = std::min(static_cast<std::size_t>(received_size), image.size());
  for (std::size_t i = 0; i < size; ++i) {
    if (image[i] != (i < sent.size() ? sent[i] : 0)) return false;
  }
  return true;
}

bool SendOneCompared(Transfer& transfer, const Section& section, const IniText& project) {
  std::vector<std::uint8_t> image;
  for (int differences = 0; differences < kMostDifferences; ++differences) {
    if (!transfer.messages().SendIdle()) return transfer.report().Fail(kCheckConnection);
    if (!SendSection(transfer, section, project, image) || !ReadBack(transfer, section)) return false;
    if (IsSame(image, transfer.messages(), transfer.messages().state().received_size)) return true;
  }
  constexpr std::string_view kDifferent = "End transfer because compare bytes isn't compatible";
  return transfer.report().FailWithLine(kDifferent, kDifferent);
}

}  // namespace

bool SendSectionsCompared(Transfer& transfer, const IniText& project) {
  std::vector<const Section*> plan = SendPlan(transfer.version);
  // A section that a plain send repeats is sent once when comparing.
  plan.erase(std::unique(plan.begin(), plan.end()), plan.end());
  for (const Section* section : plan) {
    if (!SendOneCompared(transfer, *section, project)) return false;
    if (section->moves_bar) transfer.report().Progress(section->number, kBarEnd);
  }
  return true;
}

}  // namespace tarvok::sessions
