#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "link/frame.h"
#include "link/physical_line.h"
#include "link/send_log.h"
#include "link/statistics.h"
#include "link/uses.h"
#include "link/waits.h"

namespace tarvok::link {

/** What the modem's last line of text said. */
struct ModemReply {
  static constexpr int kNone = 0;  // nothing yet, or an unknown line
  static constexpr int kConnect = 1;
  static constexpr int kBusy = 2;
  static constexpr int kNoCarrier = 3;
  static constexpr int kNoDialTone = 4;
  static constexpr int kOk = 5;

  int result = kNone;
  std::string connect_text;  // the whole line of a CONNECT
};

/**
 * The byte-stuffed, acknowledged link to the exchange: one message of at most 64 bytes per frame, one frame
 * in flight, alternating acknowledgements. Driven by bytes from the port and by a tick every 10 ms. Outside
 * of frames it collects the text lines of a modem. On a LAN there are no frames, and messages go to the
 * socket unchanged.
 */
class LinkLayer {
 public:
  /** Receives a message; the bytes are valid until it returns. */
  using MessageHandler = std::function<void(std::span<const std::uint8_t>)>;

  struct Parts {
    PhysicalLine& line;
    Waits& waits;
    SendLog& log;
    TransferStatistics& statistics;
    ModemReply& modem;
    /** Reads the bench setting that lets a session continue without a link; evaluated on every call. */
    std::function<bool()> works_without_link;
    MessageHandler on_message;
  };

  explicit LinkLayer(Parts parts) : parts_(std::move(parts)) {}

  /**
   * Call before Establish for every new connection. The nibbles form the address byte that is sent: first +
   * 16 x second.
   */
  void Init(std::uint8_t first_nibble, std::uint8_t second_nibble);
  /** Sends the Establish frame and waits up to three seconds for the link. */
  bool Establish();
  /**
   * Stores the message and sends it, without waiting and without checking for a frame in flight. Uses at most
   * 64 bytes.
   */
  void SendData(std::span<const std::uint8_t> message);
  void ReceiveByte(std::uint8_t byte);
  /**
   * Called every 10 ms and right after each accepted frame: runs LinkTick, then hands a waiting message to
   * its handler.
   */
  void Poll();

  bool is_up() const { return link_up_; }
  // For diagnosis. Nothing acts on them: the message layer notices by its own timeouts.
  bool send_done() const { return tx_done_; }
  bool send_failed() const { return tx_failed_; }
  const std::string& ModemLine() const { return modem_line_; }

 private:
  enum class State { kIdle, kData, kCheck, kAck0Address, kAck1Address, kNakAddress, kEnqAddress };

  void Tick();
  /** Copies out a waiting message and returns its length; 0 if none is waiting. */
  std::size_t TakeMessage(std::span<std::uint8_t> message);
  void SendFrame();
  void SendAck();
  void SendNak();
  void SendEnq();
  void SendControl(std::uint8_t control, std::string_view log_line);

  void ReceiveText(std::uint8_t byte);
  void ReceiveSingle(std::uint8_t byte);
  void ReceivePair(std::uint8_t byte);
  void StoreByte(std::uint8_t byte, std::size_t limit);
  void ReceiveCheck(std::uint8_t check);
  void ReceiveAddress(std::uint8_t address);
  void AcknowledgedBy(bool even_frames);
  void SendAgain();
  void Reset(std::string_view log_line);
  bool AddressOk(std::uint8_t address) const;
  bool FrameCheckOk(std::uint8_t check) const;
  void LogReceived();

  static constexpr std::size_t kMaxReceived = 255;  // the length is a byte

  Parts parts_;
  std::uint8_t first_nibble_ = 1;
  std::uint8_t second_nibble_ = 0;
  int tx_count_ = 0;
  int rx_count_ = 0;
  std::array<std::uint8_t, kMaxFrameData> tx_buffer_{};
  std::size_t tx_length_ = 0;
  bool tx_done_ = true;
  bool enq_pending_ = false;
  int retry_timer_ = 0;
  int retry_count_ = 0;
  bool tx_failed_ = false;
  State state_ = State::kIdle;
  std::array<std::uint8_t, kMaxReceived> rx_buffer_{};  // the address byte, then the message
  std::size_t rx_length_ = 0;
  bool dle_seen_ = false;
  bool rx_ready_ = false;
  bool link_up_ = false;
  std::string modem_line_;
};

}  // namespace tarvok::link
