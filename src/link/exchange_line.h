#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "link/link_layer.h"
#include "link/message_modules.h"
#include "link/stream_reader.h"
#include "link/uses.h"

namespace tarvok::link {

/**
 * Connects a session's messages to the port: physical line, link and message module for the connection mode.
 * Each form with a session has its own; nothing is shared.
 */
class ExchangeLine {
 public:
  struct Settings {
    LinkMode mode = LinkMode::kServer;
    ExchangeAddress address;
    int serial_chunk_size = 0;  // 0 writes whole blocks
  };

  ExchangeLine(const Settings& settings, Waits& waits, SendLog& log,
               std::function<bool()> works_without_link);
  ~ExchangeLine() { Close(); }
  ExchangeLine(const ExchangeLine&) = delete;
  ExchangeLine& operator=(const ExchangeLine&) = delete;

  /**
   * Takes an open or connecting port. Depending on the mode, its bytes go to the link layer or are cut into
   * messages.
   */
  void Take(std::unique_ptr<Port> port);
  /**
   * Why the other end or the system closed the stream, available after its last byte; nullopt while it is
   * open.
   */
  const std::optional<std::string>& ended() const { return ended_; }
  /** Called once when the stream has been closed. */
  void set_on_ended(std::function<void(std::string_view reason)> handler) { on_ended_ = std::move(handler); }
  /** Starts the link's 10 ms tick; does nothing in modes without link frames. */
  void StartPump();
  void StopPump();
  /** Closes the port and stops the pump. */
  void Close();

  PhysicalLine& line() { return line_; }
  LinkLayer& link() { return link_; }
  MessageLayer& messages() { return *messages_; }
  ModemReply& modem() { return modem_; }
  const TransferStatistics& statistics() const { return statistics_; }
  /** Restarts the summed duration of sends at 0. */
  void RestartSendTime() { statistics_.send_ms = 0; }
  LinkMode mode() const { return line_.mode(); }

 private:
  void Receive(std::span<const std::uint8_t> bytes);
  std::unique_ptr<MessageLayer> MakeMessages(const ExchangeAddress& address);

  Waits& waits_;
  SendLog& log_;
  TransferStatistics statistics_;
  ModemReply modem_;
  PhysicalLine line_;
  LinkLayer link_;
  std::unique_ptr<MessageLayer> messages_;
  LanReader lan_reader_;
  ServerReader server_reader_;
  EventServer::TimerId pump_ = 0;
  std::optional<std::string> ended_;
  std::function<void(std::string_view)> on_ended_;
};

}  // namespace tarvok::link
