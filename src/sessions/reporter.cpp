#include "sessions/reporter.h"

#include <utility>

#include "sessions/session_words.h"

namespace tarvok::sessions {

void Reporter::Clear() {
  reason_.clear();
  started_.clear();
}

void Reporter::Log(std::string_view text) {
  if (!waits_.aborted()) view_.Log(text);
}

void Reporter::LogLine(std::string_view text) {
  if (!std::exchange(started_, {}).empty()) Log(kLineEnd);
  Log(std::string(text) + std::string(kLineEnd));
}

void Reporter::LogBoth(std::string_view text) {
  LogLine(text);
  history_.Line(text);
}

void Reporter::Start(std::string_view text) {
  started_ = text;
  Log(text);
}

void Reporter::Finished(std::string_view dots) {
  Failed(dots, "OK");
}

void Reporter::Failed(std::string_view dots, std::string_view words) {
  const std::string text = std::exchange(started_, {});
  LogLine((dots.empty() ? Dots(text) : std::string(dots)) + std::string(words));
}

bool Reporter::End(bool done, std::string_view box, std::string_view ok_dots, std::string_view failed_dots) {
  if (done) {
    Finished(ok_dots);
    return true;
  }
  Failed(failed_dots);
  return Fail(box);
}

void Reporter::Progress(int value, int end) {
  if (!waits_.aborted()) view_.Progress(value, end);
}

void Reporter::Box(BoxKind kind, std::string_view text) {
  if (!waits_.aborted()) view_.Box(kind, text);
}

void Reporter::Note(std::string_view text) {
  LogBoth(text);
  if (!waits_.aborted()) view_.Advise(text);
}

/** The reason is one line: the lines of the text are joined. */
void Reporter::SetReason(std::string_view text, std::string_view more) {
  reason_ = text;
  for (std::size_t at = reason_.find(kLineEnd); at != std::string::npos; at = reason_.find(kLineEnd)) {
    reason_.replace(at, kLineEnd.size(), " ");
  }
  reason_ += more;
  view_.ShowPace({});  // a failed transfer has no speed
}

bool Reporter::Fail(std::string_view box, std::string_view more) {
  SetReason(box, more);
  Box(BoxKind::kCritical, box);
  return false;
}

bool Reporter::FailWithLine(std::string_view line, std::string_view box) {
  LogLine(line);
  return Fail(box);
}

bool Reporter::FailInLog(std::string_view line, std::string_view more) {
  SetReason(line, more);
  LogLine(line);
  return false;
}

}  // namespace tarvok::sessions
