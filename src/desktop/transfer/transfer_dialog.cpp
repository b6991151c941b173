#include "desktop/transfer/transfer_dialog.h"

#include <utility>

#include <QCloseEvent>
#include <QDateTime>
#include <QFileDialog>
#include <QKeyEvent>
#include <QScrollBar>

#include "desktop/look/shown_text.h"
#include "desktop/overview/last_transfer.h"
#include "desktop/transfer/exchange_changes.h"
#include "desktop/transfer/password_dialog.h"
#include "desktop/transfer/setting_dialog.h"
#include "desktop/window/boxes.h"
#include "sessions/store_loaded.h"
#include "store/header_keys.h"
#include "store/project_there.h"

namespace tarvok::desktop {
namespace {

constexpr std::string_view kDebugWord = "TRACELY7";
constexpr int kDebugPresses = 9;

}  // namespace

TransferDialog::~TransferDialog() = default;

void TransferDialog::OpenTransfer() {
  transfer_ = std::make_unique<Transfer>(TransferParts{.events = parts_.events,
                                                       .ports = parts_.ports,
                                                       .store = parts_.store,
                                                       .view = *this,
                                                       .log = log_,
                                                       .project_file = parts_.state.project_file,
                                                       .load_target = parts_.state.project_file,
                                                       .system_file = parts_.system_file,
                                                       .temp_folder = parts_.temp_folder},
                                         kind_.form);
  ShowSummary();
}

void TransferDialog::ShowSummary() {
  QStringList lines;
  for (const std::string& line : SummaryLines(transfer_->settings())) lines += Letters(line).trimmed();
  summary_->setText(lines.join(QLatin1Char('\n')));
}

QString TransferDialog::Letters(std::string_view text) const {
  return MessageText(text, PageOf(parts_.settings));
}

void TransferDialog::Run(const TransferAction& action) {
  if (running_ != nullptr || leaving_) return;
  running_ = &action;
  const std::string folder = folder_ == nullptr ? std::string() : PathBytes(folder_->text().trimmed());
  began_ = false;
  not_taken_ = cancelled_ = false;
  const std::shared_ptr<const IniText> before = parts_.store.Snapshot(parts_.state.project_file);
  // The log window and the boxes show how it ended.
  const bool done = action.run(*transfer_, folder);
  running_ = nullptr;
  if (began_ && action.carries != Carries::kNothing) Remember(action, done, *before);
  if (close_wanted_) Leave();
}

/** Remembers the result. After a complete send or load it is known what the exchange holds, unless the
 * project changed while it was being sent: then the exchange has parts of both states. */
void TransferDialog::Remember(const TransferAction& action, bool done, const IniText& before) {
  const std::string& project = parts_.state.project_file;
  KeepLastTransfer(parts_.settings, parts_.store.files(), project,
                   {.time_s = QDateTime::currentSecsSinceEpoch(),
                    .loaded = action.loads,
                    .end = not_taken_                    ? TransferEnd::kNotTaken
                           : done                        ? TransferEnd::kDone
                           : close_wanted_ || cancelled_ ? TransferEnd::kCancelled
                                                         : TransferEnd::kFailed,
                    .what = Words(action.text).remove(QLatin1Char('&')).toStdString()});
  if (!done || action.carries != Carries::kAll) return;
  const std::shared_ptr<const IniText> now =
      parts_.store.Snapshot(action.loads ? transfer_->temporary->path() : project);
  if (!action.loads && SentPart(before) != SentPart(*now)) return;
  if (now->bytes().empty()) return;
  const Status kept = parts_.copies.Keep(transfer_->settings(), now->bytes());
  if (!kept.ok()) log_.Line(kept.message());
}

/** True for a load, a call that is being dialled, and a wait without a limit. A send that talks to the
 * exchange can't be given up, because it would leave half a configuration there. */
bool TransferDialog::MayGiveUp() const {
  return running_->loads || transfer_->waits().without_end() || transfer_->calling;
}

void TransferDialog::Leave() {
  if (leaving_) return;
  if (running_ != nullptr) {
    if (!MayGiveUp()) return;
    close_wanted_ = true;
    transfer_->Abort();
    return;
  }
  leaving_ = true;
  for (QWidget* control : idle_controls_) control->setEnabled(false);
  KeepFolder();
  transfer_->Unload();
  done(Accepted);
}

bool TransferDialog::Unload() {
  if (running_ != nullptr) {
    Advise("The program cannot end during a transfer. Exit again when it is over.");
    return false;
  }
  for (QDialog* above : findChildren<QDialog*>()) above->reject();
  Leave();
  return !isVisible();
}

void TransferDialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  Leave();
}

void TransferDialog::Log(std::string_view text) {
  QTextCursor end(log_window_->document());
  end.movePosition(QTextCursor::End);
  end.insertText(Letters(text));
  QScrollBar* scroll = log_window_->verticalScrollBar();
  scroll->setValue(scroll->maximum());
}

void TransferDialog::Progress(int value, int end) {
  bar_->setRange(0, end);
  bar_->setValue(value);
}

void TransferDialog::Elapsed(int seconds) {
  elapsed_->setText(Words(MinutesText(seconds)));
}

void TransferDialog::Box(BoxKind kind, std::string_view text) {
  ShowBox(this, kind == BoxKind::kCritical ? QMessageBox::Critical : QMessageBox::Information, Letters(text));
}

bool TransferDialog::Ask(std::string_view question) {
  const bool replaces = question == kReplaceQuestion;
  // Closing it would lose what was loaded.
  if (!AskYesNo(this, Letters(question), {.escape = replaces ? YesNo::kDoesNothing : YesNo::kIsNo}))
    return false;
  if (replaces) parts_.keep(parts_.state.project_file, kBeforeLoad);
  return true;
}

bool TransferDialog::AskWithCompare(std::string_view question, bool& compare) {
  return AskWithCompareBox(this, Letters(question), compare,
                           [this](QWidget* box) { ShowWhatWillChange(parts_, transfer_->settings(), box); });
}

std::optional<std::string> TransferDialog::AskSaveName() {
  const std::string name = dialogs_.ChooseNewFile(this, QStringLiteral("Save loaded config"));
  not_taken_ = name.empty();
  if (not_taken_) return std::nullopt;
  parts_.keep(name, kBeforeLoad);  // the user may choose the name of another project
  return name;
}

void TransferDialog::ShowPassword(PasswordForm& form) {
  PasswordDialog dialog(
      form, [this] { return transfer_->waits().aborted(); }, this);
  dialog.exec();
  cancelled_ = dialog.cancelled();
}

void TransferDialog::Advise(std::string_view text) {
  advice_->setText(Letters(text));
  advice_->show();
}

void TransferDialog::ShowPace(std::string_view text) {
  pace_->setText(Words(text));
  pace_->setVisible(!text.empty());
}

void TransferDialog::SetBusy(bool busy) {
  if (busy) {
    advice_->hide();
    pace_->hide();
  }
  for (QWidget* control : idle_controls_) control->setEnabled(!busy);
  if (busy) {
    began_ = true;
    bar_->reset();
    Elapsed(0);
    direction_->Start(running_ == nullptr || !running_->loads);
    log_window_->setFocus();
  } else {
    direction_->Stop();
    auto* pressed = running_ == nullptr ? nullptr : findChild<QPushButton*>(Words(running_->control));
    if (pressed != nullptr && !close_wanted_) pressed->setFocus();
  }
}

void TransferDialog::OpenSettings() {
  if (running_ != nullptr || leaving_) return;
  if (SettingDialog(parts_, this).exec() != Accepted) return;
  // The connection of the old settings says its last words before a new one replaces it.
  leaving_ = true;
  transfer_->Unload();
  leaving_ = false;
  OpenTransfer();
}

void TransferDialog::KeepFolder() {
  if (folder_ == nullptr) return;
  const std::string folder = PathBytes(folder_->text().trimmed());
  const std::string& project = parts_.state.project_file;
  if (folder == parts_.store.GetIniValue(project, kHeaderSection, kLastBilling)) return;
  if (const std::string problem = WhyNoProject(parts_.store, project); !problem.empty()) {
    return Box(BoxKind::kCritical, problem);
  }
  const Status kept = parts_.store.SetIniValue(project, kHeaderSection, kLastBilling, folder);
  if (!kept.ok()) Box(BoxKind::kCritical, kept.message());
}

void TransferDialog::Browse() {
  const QString folder =
      QFileDialog::getExistingDirectory(this, QStringLiteral("Folder of the billing files"), folder_->text());
  if (folder.isEmpty()) return;
  folder_->setText(folder);
  KeepFolder();
}

/** Turns the diagnostics of the link on when the first keys pressed on the first button spell the debug word,
 * and off at the next key. */
void TransferDialog::WatchDebugWord(const QString& typed) {
  if (typed.isEmpty()) return;
  if (debug_word_.size() < kDebugPresses) debug_word_ += typed;
  log_.set_debug(debug_word_ == Words(kDebugWord));
  if (log_.debug()) setWindowTitle(windowTitle() + QStringLiteral(" - Layer 2 debug on"));
}

bool TransferDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && watched->objectName() == QStringLiteral("cmdWrite")) {
    WatchDebugWord(static_cast<QKeyEvent*>(event)->text());
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace tarvok::desktop
