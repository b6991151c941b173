#pragma once

#include <cstdint>

#include "link/uses.h"

namespace tarvok::link {

/** What a session counts. LinkInit sets it back. */
struct TransferStatistics {
  std::int64_t response_errors = 0;  // error replies
  std::int64_t enquiry_count = 0;    // enquiries sent
  std::int64_t packets_sent = 0;     // packs that went through
  std::int64_t bytes_sent = 0;       // message bytes that went through, headers not counted
  std::int64_t bytes_received = 0;   // each section's declared size, and every later pack once more
  std::int64_t bytes_taken = 0;      // section bytes that came, each once
  std::int64_t frames_damaged = 0;   // Naks, in either direction
  // Beginnings of messages whose rest never came: all the damage that shows without frames.
  std::int64_t BrokenOff = 0;
  // Asked for once more: by the link of either side, or by a message sent again.
  std::int64_t late_answers = 0;
  // Packs of a section whose number does not follow the one before, and mini bar records of an earlier number.
  std::int64_t PacksOutOfStep = 0;
  std::int64_t send_ms = 0;  // summed duration of section and mini bar sends
};

}  // namespace tarvok::link
