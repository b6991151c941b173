#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** Behind an answer that came whole, where the next message would follow at once. A device that takes one read for one
 * message loses what comes together with the OK to the last pack. */
inline constexpr double kAnswerPause_s = 0.01;
/** Pause before each request for a section. */
inline constexpr double kRequestPause_s = 0.1;

/** Something that is asked of the exchange and arrives in packs behind the answer. */
struct WholeRequest {
  std::function<bool()> ask;       // true when the first pack came
  double pause_s = 0;              // in front of each request
  double answer_pause_s = 0;       // behind the answer
  std::string_view refused;        // told in the log window and a box where no answer came
  std::string getting;             // the progress text
  std::string give_up_words = {};  // behind "Failed" where the exchange keeps refusing
};

/** Asks until it came whole. An error reply repeats the request behind a good idle message, at most three
 * times. There is no limit on the rest of an answer that began: an exchange that falls silent there is left
 * by closing the form. */
bool GetWhole(Transfer& transfer, const WholeRequest& request);

}  // namespace tarvok::sessions
