#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "link/link_layer.h"
#include "link/serial_messages.h"
#include "link/server_messages.h"
#include "link/stream_reader.h"
#include "link/uses.h"

namespace tarvok::link {

/** The way from a session's messages to the port and back: physical line, link and message module of the
 * mode, joined. One a session's form; nothing in it is shared with another. */
class ExchangeLine {
 public:
  struct Settings {
    LinkMode mode = LinkMode::kServer;
    ExchangeAddress address;
    int serial_chunk_size = 0;  // 0 for whole blocks
  };

  ExchangeLine(const Settings& settings, Waits& waits, SendLog& log,
               std::function<bool()> works_without_link);
  ~ExchangeLine() { Close(); }
  ExchangeLine(const ExchangeLine&) = delete;
  ExchangeLine& operator=(const ExchangeLine&) = delete;

  /** Takes an open or connecting port; its bytes go to the link, or are cut into messages, by mode. */
  void Take(std::unique_ptr<Port> port);
  /** Why the other end or the system ended the stream, known behind its last byte; nothing while nobody did. */
  const std::optional<std::string>& ended() const { return ended_; }
  /** Called once when that becomes known. */
  void set_on_ended(std::function<void(std::string_view reason)> handler) { on_ended_ = std::move(handler); }
  /** The link's tick, every 10 ms; only the modes with link frames have it. */
  void StartPump();
  void StopPump();
  /** Closes the port and stops the pump. */
  void Close();

  PhysicalLine& line() { return line_; }
  LinkLayer& link() { return link_; }
  MessageLayer& messages() { return *messages_; }
  ModemReply& modem() { return modem_; }
  const TransferStatistics& statistics() const { return statistics_; }
  /** The time of the sends counts from here. */
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
