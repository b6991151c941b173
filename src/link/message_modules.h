#pragma once

#include "link/link_layer.h"
#include "link/message_layer.h"
#include "link/uses.h"

namespace tarvok::link {

/** The messages over serial line, modem, LAN to serial and LAN: in link frames, or unframed on a LAN. */
class SerialMessages : public MessageLayer {
 public:
  SerialMessages(Parts parts, LinkLayer& link) : MessageLayer(parts, kVariant), link_(link) {}

 private:
  static constexpr MessageVariant kVariant = {.get_config_words = "Get config - ",
                                              .get_mini_bar_words = "Get minibar - ",
                                              .answers_enquiry = true,
                                              .keeps_first_sequence = true,
                                              .has_mini_bar_reply = true,
                                              .sums_send_time = true};

  void Carry(std::span<const std::uint8_t> message) override { link_.SendData(message); }

  LinkLayer& link_;
};

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
