#pragma once

#include <string>
#include <string_view>

#include "link/send_log.h"
#include "link/waits.h"
#include "sessions/session_view.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** What a session says while it runs. Nothing is shown while it unwinds from an abort. */
class Reporter {
 public:
  Reporter(SessionView& view, SendLog& history, const Waits& waits)
      : view_(view), history_(history), waits_(waits) {}

  /** Forgets what the session before left behind. */
  void Clear();

  /** Appends text to the log window as it is. */
  void Log(std::string_view text);
  void LogLine(std::string_view text);
  /** Starts a line with a progress text; Finished or Failed end the line. */
  void Start(std::string_view text);
  void Finished(std::string_view dots = {});  // empty dots fill the line
  void Failed(std::string_view dots = {}, std::string_view words = "Failed");
  /** Ends the line as `done` requires, and fails with the box if it is false. Returns `done`. */
  bool End(bool done, std::string_view box, std::string_view ok_dots = {}, std::string_view failed_dots = {});
  void Progress(int value, int end);
  void Box(BoxKind kind, std::string_view text);
  /**
   * Shows a warning while the session continues: as a line in the log window and in the history, and as
   * advice, of which a window may show only the latest.
   */
  void Note(std::string_view text);
  /** A line in the log window and in the history. */
  void LogBoth(std::string_view text);

  /**
   * Shows a failure's box and sets the one-line reason with which a command line ends: the text of the box
   * followed by `more`. Always returns false.
   */
  bool Fail(std::string_view box, std::string_view more = {});
  /** The same, with a line in the log window before the box. */
  bool FailWithLine(std::string_view line, std::string_view box);
  /** Reports a failure in the log window, without a box. Always returns false. */
  bool FailInLog(std::string_view line, std::string_view more = {});
  /** Why the last session failed; "" if it did not. */
  const std::string& reason() const { return reason_; }

 private:
  void SetReason(std::string_view text, std::string_view more);

  SessionView& view_;
  SendLog& history_;
  const Waits& waits_;
  std::string started_;  // the progress text whose line has not been ended yet
  std::string reason_;
};

}  // namespace tarvok::sessions
