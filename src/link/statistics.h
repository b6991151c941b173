#pragma once

#include <cstdint>

#include "link/uses.h"

namespace tarvok::link {

/** What a session counts. LinkInit resets it. */
struct TransferStatistics {
  std::int64_t response_errors = 0;  // error replies
  std::int64_t enquiry_count = 0;    // enquiries sent
  std::int64_t packets_sent = 0;     // packs that were acknowledged
  std::int64_t bytes_sent = 0;       // message bytes that were acknowledged, without headers
  std::int64_t bytes_received = 0;   // each section's declared size; packs after the first count twice
  std::int64_t bytes_taken = 0;      // section bytes that arrived, each counted once
  std::int64_t frames_damaged = 0;   // Naks, in either direction
  // Messages that broke off: the only damage that can be detected without frames.
  std::int64_t broken_off = 0;
  // Repeats requested by the link of either side, and messages sent again.
  std::int64_t late_answers = 0;
  // Packs of a section that are out of sequence, and mini bar records with an earlier number.
  std::int64_t packs_out_of_step = 0;
  std::int64_t send_ms = 0;  // total duration of section and mini bar sends
};

}  // namespace tarvok::link
