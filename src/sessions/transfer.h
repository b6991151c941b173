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

/** The forms that hold a connection; some words and the password's mode go by form. */
enum class TransferForm { kConnect, kMiniBar, kBilling };

/** What a program lends to a session. */
struct TransferParts {
  EventServer& events;
  PortMaker& ports;
  ProjectStore& store;
  SessionView& view;
  SendLog& log;
  std::string project_file;  // whose settings connect and whose sections are sent
  std::string load_target;   // what a load replaces where the user says Yes: the open project, as a rule
  std::string system_file;   // holds the bench setting of the link
  std::string temp_folder;   // where a load makes a private folder for its project
  bool may_replace = true;   // false: a load leaves a target that is there by its end as it is
};

/**
 * What an open transfer form holds: the connection settings, the line to the exchange, and the ways in which
 * every session begins, fails and ends. Sessions are the stories told with it.
 */
class Transfer {
 public:
  Transfer(const TransferParts& parts, TransferForm form);
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /** Disables the buttons, starts pump and elapsed time, and puts the heading. */
  void Begin(TransferDirection direction, std::string_view what);
  /** The same for what is no session of the exchange: no heading. */
  void BeginQuietly();
  /** The end of every session: port and timers closed, buttons back. */
  void CleanUp();
  /** The end of a send after a section that failed: a serial port stays open for Unload. */
  void CleanUpKeepingPort();
  /** The form goes. A serial port that a failed section or an abort left open is used to put the exchange
   * back to normal; then the port is closed. Not from within one of the session's own waits. */
  void Unload();
  /** Held while a modem is called: a call may be given up, also in a send. */
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
  /** The temporary project of the latest load; null before the first. It lasts until the next load or as long as the form. */
  TemporaryProject* temporary() { return temporary_.get(); }
  void set_temporary(std::unique_ptr<TemporaryProject> temporary) { temporary_ = std::move(temporary); }
  /** The form is closed by the user: every wait ends and the session unwinds without boxes. */
  void Abort() { waits_.Abort(); }

  // What a story says. While it unwinds from an abort nothing is shown.
  void Log(std::string_view text);
  void LogLine(std::string_view text);
  /** A progress text; Finished or Failed end its line. */
  void Start(std::string_view text);
  void Finished(
      std::string_view dots = {});  // without dots of its own the text gets as many as fill the line
  void Failed(std::string_view dots = {}, std::string_view words = "Failed");
  void Box(BoxKind kind, std::string_view text);
  /** What is to be known of a session that goes on: a line in the log window and in the history, and advice, of which a
   * window may show the last alone. */
  void Note(std::string_view text);
  void Progress(int value, int end);
  /** From here on the view is told each second how fast `bytes` get through: payload of the messages that go out, bytes of
   * the sections that come in. */
  void BeginPace(std::int64_t bytes);
  /** All is through: the view is told speed and share of the line. */
  void EndPace();
  /** The project whose sections are sent. One that can't be read would go out as a blank one: it has a box instead,
   * and nullptr comes back. */
  std::shared_ptr<const IniText> ProjectToSend();
  /** A failure's box and, in one line, the reason that a command line ends with: the box's words, and `more` behind
   * them. Always false. */
  bool Fail(std::string_view box, std::string_view more = {});
  /** A failure without a box: a line in the log window. Always false. */
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
  void set_compare(bool compare) { settings_.compare = compare; }
  /** The exchange's version as the log-in learnt it; what comes later under that code does not change a session. */
  int version() const { return version_; }
  void set_version(int version) { version_ = version; }
  LinkMode mode() const { return mode_; }
  TransferForm form() const { return form_; }
  TransferDirection direction() const { return direction_; }
  /** Why the last session failed, "" if it did not. */
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
  std::string started_;  // the progress text whose line is still open
  std::string reason_;
  bool calling_ = false;
  EventServer::TimerId elapsed_timer_ = 0;
  int elapsed_s_ = 0;
  std::optional<Pace> pace_;
  std::int64_t bytes_before_pace_ = 0;
};

}  // namespace tarvok::sessions
