#include "sessions/transfer.h"

#include <algorithm>
#include <utility>

#include "sessions/modem_call.h"
#include "sessions/open_connection.h"
#include "store/header_keys.h"
#include "store/number_text.h"

namespace tarvok::sessions {
namespace {

constexpr int kElapsedTick_ms = 1000;

ConnectionForm FormOf(TransferForm form) {
  return form == TransferForm::kBilling ? ConnectionForm::kBilling : ConnectionForm::kTransfer;
}

/** Joins the lines of a text. */
std::string InOneLine(std::string_view text) {
  std::string line(text);
  for (std::size_t at = line.find(kLineEnd); at != std::string::npos; at = line.find(kLineEnd)) {
    line.replace(at, kLineEnd.size(), " ");
  }
  return line;
}

}  // namespace

Transfer::Transfer(const TransferParts& parts, TransferForm form)
    : parts_(parts), form_(form), waits_(parts.events) {
  const Status written_back = ReadConnection(parts_.store, parts_.project_file, FormOf(form), settings_);
  if (!written_back.ok()) parts_.log.Line(written_back.message());
  mode_ = settings_.Mode();
  const ExchangeLine::Settings line = {
      .mode = mode_,
      .address = {settings_.PbxId(), settings_.CardId(), settings_.IsDirect()},
      .serial_chunk_size = settings_.ChunkSize(),
  };
  line_ = std::make_unique<ExchangeLine>(line, waits_, parts_.log, [this] {
    return Trim(parts_.store.GetIniValue(parts_.system_file, kHeaderSection, kEstablishKey)) == "1";
  });
  line_->set_on_ended([this](std::string_view reason) { OnEnded(reason); });
}

void Transfer::Begin(TransferDirection direction, std::string_view what) {
  direction_ = direction;
  BeginQuietly();
  Log(Heading(what, mode_));
}

void Transfer::BeginQuietly() {
  reason_.clear();
  started_.clear();
  elapsed_s_ = 0;
  pace_.reset();
  parts_.view.SetBusy(true);
  line_->StartPump();
  elapsed_timer_ = parts_.events.StartTimer(kElapsedTick_ms, [this] { OnSecond(); });
}

void Transfer::OnSecond() {
  parts_.view.Elapsed(++elapsed_s_);
  if (!pace_) return;
  const std::int64_t now_ms = parts_.events.Tick_ms();
  parts_.view.ShowPace(pace_->Now(BytesThrough(), now_ms));
  if (!pace_->FallsSilent(BytesThrough(), now_ms)) return;
  // The wait for the rest of a section has no time limit: a lost byte stops it just as a dead line does.
  parts_.view.Advise(waits_.without_end()
                         ? "Nothing received for 15 seconds. If this continues, the rest may be lost: give "
                           "up and start again."
                         : "Nothing received for 15 seconds. If this continues, the session ends by itself.");
}

void Transfer::OnEnded(std::string_view reason) {
  if (elapsed_timer_ == 0 || waits_.aborted()) return;  // no session is waiting
  const bool ends = UsesSocket(mode_) || !waits_.without_end();
  parts_.view.Advise("The connection was closed (" + std::string(reason) + "). " +
                     (ends ? "The session ends by itself." : "Give up and start again."));
}

std::int64_t Transfer::BytesThrough() const {
  const TransferStatistics& counted = line_->statistics();
  return counted.bytes_sent + counted.bytes_taken - bytes_before_pace_;
}

void Transfer::BeginPace(std::int64_t bytes) {
  bytes_before_pace_ = 0;
  bytes_before_pace_ = BytesThrough();
  // In the other modes the speed of the line is unknown.
  const std::optional<LineSettings> line = mode_ == LinkMode::kSerial ? SerialLine(settings_) : std::nullopt;
  pace_.emplace(bytes, line ? line->speed : 0, parts_.events.Tick_ms());
}

void Transfer::EndPace() {
  if (pace_ && !waits_.aborted()) parts_.view.ShowPace(pace_->End(BytesThrough(), parts_.events.Tick_ms()));
  pace_.reset();
}

void Transfer::EndCounting() {
  if (pace_) parts_.view.ShowPace({});  // the transfer did not complete
  pace_.reset();
  parts_.events.StopTimer(std::exchange(elapsed_timer_, 0));
  parts_.view.SetBusy(false);
}

void Transfer::CleanUp() {
  if (waits_.aborted()) {
    CleanUpKeepingPort();  // the closing form still sends its last message over the port
    return;
  }
  line_->Close();
  EndCounting();
}

void Transfer::CleanUpKeepingPort() {
  line_->StopPump();
  EndCounting();
}

void Transfer::Unload() {
  const bool serial = !UsesSocket(mode_) && line_->line().IsOpen();
  if (serial && line_->link().is_up()) {
    waits_.ClearAbort();
    line_->StartPump();
    if (messages().SendIdle()) {
      // The form closes whether or not the exchange accepts the mode.
      [[maybe_unused]] const bool normal = messages().SendSetMode(ExchangeMode::kNormal);
    }
  }
  if (serial && mode_ == LinkMode::kModem) EndModemCall(*line_);
  line_->Close();
}

void Transfer::Log(std::string_view text) {
  if (!waits_.aborted()) parts_.view.Log(text);
}

void Transfer::LogLine(std::string_view text) {
  if (!std::exchange(started_, {}).empty()) Log(kLineEnd);
  Log(std::string(text) + std::string(kLineEnd));
}

void Transfer::Start(std::string_view text) {
  started_ = text;
  Log(text);
}

void Transfer::Finished(std::string_view dots) {
  Failed(dots, "OK");
}

void Transfer::Failed(std::string_view dots, std::string_view words) {
  const std::string text = std::exchange(started_, {});
  LogLine((dots.empty() ? Dots(text) : std::string(dots)) + std::string(words));
}

void Transfer::Box(BoxKind kind, std::string_view text) {
  if (!waits_.aborted()) parts_.view.Box(kind, text);
}

void Transfer::Note(std::string_view text) {
  LogLine(text);
  parts_.log.Line(text);
  if (!waits_.aborted()) parts_.view.Advise(text);
}

void Transfer::Progress(int value, int end) {
  if (!waits_.aborted()) parts_.view.Progress(value, end);
}

std::shared_ptr<const IniText> Transfer::ProjectToSend() {
  std::shared_ptr<const IniText> project = parts_.store.Snapshot(parts_.project_file);
  if (!project->bytes().empty()) return project;
  [[maybe_unused]] const bool failed = Fail(kNotAProject);
  return nullptr;
}

bool Transfer::Fail(std::string_view box, std::string_view more) {
  reason_ = InOneLine(box).append(more);
  parts_.view.ShowPace({});
  Box(BoxKind::kCritical, box);
  return false;
}

bool Transfer::FailInLog(std::string_view line, std::string_view more) {
  reason_ = InOneLine(line).append(more);
  parts_.view.ShowPace({});
  LogLine(line);
  return false;
}

}  // namespace tarvok::sessions
