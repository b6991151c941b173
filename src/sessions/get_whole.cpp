#include "sessions/get_whole.h"

namespace tarvok {
namespace {

constexpr int kMostErrors = 4;

bool Ask(Transfer& transfer, const WholeRequest& request) {
  MessageState& state = transfer.messages().state();
  state.ErrorReplyFlag = false;
  state.SectionDoneFlag = false;
  if (!transfer.waits().WaitSeconds(request.pause_s)) return false;
  if (!request.ask()) {
    transfer.LogLine(request.refused);
    return transfer.Fail(request.refused);
  }
  transfer.Start(request.getting);
  return true;
}

}  // namespace

bool GetWhole(Transfer& transfer, const WholeRequest& request) {
  MessageState& state = transfer.messages().state();
  for (int errors = 0; Ask(transfer, request);) {
    const auto answered = [&] { return state.SectionDoneFlag || state.ErrorReplyFlag; };
    if (!transfer.waits().Until(answered, EventServer::kForever)) return false;
    if (state.SectionDoneFlag) {
      transfer.Finished();
      return true;
    }
    if (++errors == kMostErrors) {
      transfer.Failed("..........................", "Failed " + request.give_up_words);
      return transfer.Fail(kCheckConnection);
    }
    if (!transfer.messages().SendIdle()) return transfer.Fail(kCheckConnection);
  }
  return false;
}

}  // namespace tarvok
