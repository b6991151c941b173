#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "link/exchange_line.h"
#include "sessions/pace.h"
#include "sessions/session_view.h"
#include "sessions/session_words.h"
#include "sessions/temporary_project.h"
#include "sessions/uses.h"
#include "store/connection_settings.h"
#include "store/project_store.h"

namespace tarvok::sessions {

/** The forms that hold a connection. Some texts and the password's mode depend on the form. */
enum class TransferForm { kConnect, kMiniBar, kBilling };

/** What a program supplies to a session. */
struct TransferParts {
  EventServer& events;
  PortMaker& ports;
  ProjectStore& store;
  SessionView& view;
  SendLog& log;
  std::string project_file;  // provides the connection settings and the sections that are sent
  std::string load_target;   // replaced by a load if the user says Yes: normally the open project
  std::string system_file;   // contains the link's bench setting
  std::string temp_folder;   // where a load creates a private folder for its project
  bool may_replace = true;   // false: a load does not replace a target that exists at its end
};

/**
 * What an open transfer form holds: the connection settings, the line to the exchange, and the steps by which
 * every session begins, fails and ends. Sessions are functions that use it.
 */
class Transfer {
 public:
  Transfer(const TransferParts& parts, TransferForm form);
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /** Disables the buttons, starts the link's tick and the elapsed time, and logs the heading. */
  void Begin(TransferDirection direction, std::string_view what);
  /** Like Begin, but without a heading: for sessions that do not talk to the exchange. */
  void BeginQuietly();
  /** Ends every session: closes the port, stops the timers and enables the buttons. */
  void CleanUp();
  /** Ends a send after a failed section: keeps a serial port open for Unload. */
  void CleanUpKeepingPort();
  /**
   * Called when the form closes. If a failed section or an abort left a serial port open, sets the exchange
   * back to normal, then closes the port. Must not be called from within one of the session's own waits.
   */
  void Unload();
  /** Held while a modem is being called: a call may be given up, even in a send. */
  class Calling {
   public:
    explicit Calling(Transfer& transfer) : calling_(transfer.calling_) { calling_ = true; }
    ~Calling() { calling_ = false; }
    Calling(const Calling&) = delete;
    Calling& operator=(const Calling&) = delete;

   private:
    bool& calling_;
  };
  bool calling() const { return calling_; }
  /**
   * The temporary project of the latest load; null before the first. It exists until the next load or until
   * the form closes.
   */
  TemporaryProject* temporary() { return temporary_.get(); }
  void set_temporary(std::unique_ptr<TemporaryProject> temporary) { temporary_ = std::move(temporary); }
  /** Called when the user closes the form: every wait ends and the session unwinds without boxes. */
  void Abort() { waits_.Abort(); }

  // Output of a session. Nothing is shown while it unwinds from an abort.
  void Log(std::string_view text);
  void LogLine(std::string_view text);
  /** Starts a line with a progress text; Finished or Failed end the line. */
  void Start(std::string_view text);
  void Finished(std::string_view dots = {});  // empty dots fill the line
  void Failed(std::string_view dots = {}, std::string_view words = "Failed");
  void Box(BoxKind kind, std::string_view text);
  /**
   * Shows a warning while the session continues: as a line in the log window and in the history, and as
   * advice, of which a window may show only the latest.
   */
  void Note(std::string_view text);
  void Progress(int value, int end);
  /**
   * From now on the view shows each second how fast `bytes` get through: payload of outgoing messages plus
   * bytes of incoming sections.
   */
  void BeginPace(std::int64_t bytes);
  /** Call when all is through: the view shows the speed and the share of the line. */
  void EndPace();
  /**
   * The project whose sections are sent. If it cannot be read, shows a box and returns nullptr; it would
   * otherwise be sent as an empty one.
   */
  std::shared_ptr<const IniText> ProjectToSend();
  /**
   * Shows a failure's box and sets the one-line reason with which a command line ends: the text of the box
   * followed by `more`. Always returns false.
   */
  bool Fail(std::string_view box, std::string_view more = {});
  /** Reports a failure in the log window, without a box. Always returns false. */
  bool FailInLog(std::string_view line, std::string_view more = {});

  MessageLayer& messages() { return line_->messages(); }
  ExchangeLine& line() { return *line_; }
  Waits& waits() { return waits_; }
  SessionView& view() { return parts_.view; }
  ProjectStore& store() { return parts_.store; }
  SendLog& log() { return parts_.log; }
  PortMaker& ports() { return parts_.ports; }
  const TransferParts& parts() const { return parts_; }
  const ConnectionSettings& settings() const { return settings_; }
  void set_compare(bool compare) { settings_.compare = compare ? "1" : ""; }
  /** The exchange's version as read at log-in. Later version replies do not change a session. */
  int version() const { return version_; }
  void set_version(int version) { version_ = version; }
  LinkMode mode() const { return mode_; }
  TransferForm form() const { return form_; }
  TransferDirection direction() const { return direction_; }
  /** Why the last session failed; "" if it did not. */
  const std::string& reason() const { return reason_; }

 private:
  void EndCounting();
  std::int64_t BytesThrough() const;
  void OnSecond();
  void OnEnded(std::string_view reason);

  TransferParts parts_;
  TransferForm form_;
  Waits waits_;
  ConnectionSettings settings_;
  LinkMode mode_ = LinkMode::kServer;
  int version_ = 0;
  std::unique_ptr<ExchangeLine> line_;
  std::unique_ptr<TemporaryProject> temporary_;
  TransferDirection direction_ = TransferDirection::kWrite;
  std::string started_;  // the progress text whose line has not been ended yet
  std::string reason_;
  bool calling_ = false;
  EventServer::TimerId elapsed_timer_ = 0;
  int elapsed_s_ = 0;
  std::optional<Pace> pace_;
  std::int64_t bytes_before_pace_ = 0;
};

}  // namespace tarvok::sessions
