#pragma once

#include "link/message_layer.h"
#include "link/physical_line.h"
#include "link/uses.h"

namespace tarvok::link {

/**
 * The messages over a relay server: each in one packet of 129 bytes, without link frames. GetMiniBar waits
 * for a reply that the server never sends, so it always fails, and send times are not summed; both are
 * deliberate.
 */
class ServerMessages : public MessageLayer {
 public:
  ServerMessages(Parts parts, PhysicalLine& line) : MessageLayer(parts, kVariant), line_(line) {}

 private:
  static constexpr MessageVariant kVariant = {.get_config_words = "Get Config - ",
                                              .get_mini_bar_words = "Get MiniBar - ",
                                              .answers_enquiry = false,
                                              .keeps_first_sequence = false,
                                              .has_mini_bar_reply = false,
                                              .sums_send_time = false};

  void Carry(std::span<const std::uint8_t> message) override { SendToServer(message); }
  void SendToServer(std::span<const std::uint8_t> message);

  PhysicalLine& line_;
};

}  // namespace tarvok::link
