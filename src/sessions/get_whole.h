#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * Pause after a complete answer, before the next message. Without it, a device that treats each read as one
 * message would lose a message that arrives together with the OK to the last pack.
 */
inline constexpr double kAnswerPause_s = 0.01;
/** Pause before each request for a section. */
inline constexpr double kRequestPause_s = 0.1;

/** A request whose data arrives in packs after the reply. */
struct WholeRequest {
  std::function<bool()> ask;       // true if the first pack came
  double pause_s = 0;              // before each request
  double answer_pause_s = 0;       // after the answer
  std::string_view refused;        // shown in the log window and a box if no reply came
  std::string getting;             // the progress text
  std::string give_up_words = {};  // shown after "Failed" if the exchange keeps refusing
};

/**
 * Repeats the request until all data has arrived. After an error reply and a good idle message, the request
 * is repeated at most three times. Once an answer has begun, there is no time limit for the rest: if the
 * exchange falls silent there, the user has to close the form.
 */
bool GetWhole(Transfer& transfer, const WholeRequest& request);

}  // namespace tarvok::sessions
