#include "sessions/get_whole.h"

#include <optional>
#include <string>

#include "sessions/session_words.h"

namespace tarvok::sessions {
namespace {

constexpr int kMostErrors = 4;

bool Ask(Transfer& transfer, const WholeRequest& request) {
  MessageState& state = transfer.messages().state();
  state.error_came = false;
  state.section_done = false;
  if (!transfer.waits().WaitSeconds(request.pause_s)) return false;
  if (!request.ask()) return transfer.report().FailWithLine(request.refused, request.refused);
  transfer.report().Start(request.getting);
  return true;
}

/**
 * No answer can come over a line that is known to be closed. A serial device that disappeared may come back
 * under the same name, so there the user ends the wait.
 */
bool IsClosed(Transfer& transfer) {
  return transfer.transport().port == PortKind::kSocket && transfer.line().ended().has_value();
}

bool GiveUp(Transfer& transfer, const WholeRequest& request) {
  const std::optional<std::string>& ended = transfer.line().ended();
  transfer.report().Failed("..........................", "Failed " + request.give_up_words);
  return transfer.report().Fail(kCheckConnection, ended ? ": " + *ended : std::string());
}

}  // namespace

bool GetWhole(Transfer& transfer, const WholeRequest& request) {
  MessageState& state = transfer.messages().state();
  for (int errors = 0; Ask(transfer, request);) {
    const auto answered = [&] { return transfer.messages().IsWhole() || state.error_came; };
    const auto over = [&] { return answered() || IsClosed(transfer); };
    if (!transfer.waits().Until(over, EventServer::kForever)) return false;
    if (!answered()) return GiveUp(transfer, request);
    if (transfer.messages().IsWhole()) {
      if (!transfer.waits().WaitSeconds(request.answer_pause_s)) return false;
      transfer.report().Finished();
      return true;
    }
    if (++errors == kMostErrors) return GiveUp(transfer, request);
    if (!transfer.messages().SendIdle()) return transfer.report().Fail(kCheckConnection);
  }
  return false;
}

}  // namespace tarvok::sessions
