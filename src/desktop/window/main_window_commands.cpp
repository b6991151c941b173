// Commands of the main window besides those of the frame: going to a place, earlier versions, practice
// exchange.

#include "desktop/look/shown_text.h"
#include "desktop/window/boxes.h"
#include "desktop/window/main_window.h"
#include "desktop/window/project_copies.h"
#include "desktop/window/versions_dialog.h"
#include "store/connection_settings.h"
#include "store/header_keys.h"
#include "store/project_there.h"

namespace tarvok::desktop {
namespace {

constexpr std::string_view kDirect = "0";
constexpr std::string_view kBeforePractice = "Before it was connected to the practice exchange";

}  // namespace

bool MainWindow::GoTo(const Place& place) {
  if (!frame_->GoTo(CommandOf(place), place)) return false;
  activateWindow();
  return true;
}

void MainWindow::Find() {
  if (find_ == nullptr) {
    find_ = new FindDialog(parts_,
                           {.find = [this](const Place& place) { return CommandFor(place); },
                            .go = [this](const Place& place) { return GoTo(place); }},
                           this);
  }
  find_->Ask();
}

bool MainWindow::LeaveForm() {
  return parts_.state.active_form_name.empty() ||
         frame_->CloseActiveForm(std::string(parts_.state.active_form_name));
}

void MainWindow::SaveAs() {
  if (!LeaveForm()) return;
  const std::optional<std::string> copy = CopyProject(parts_, QStringLiteral("Save As"), this);
  if (copy && frame_->Close()) frame_->OpenProject(*copy);
}

void MainWindow::Duplicate() {
  if (!LeaveForm()) return;
  const std::optional<std::string> copy = CopyProject(parts_, QStringLiteral("Duplicate"), this);
  if (!copy) return;
  ShowBox(this, QMessageBox::Information,
          QStringLiteral("The project was copied to\n%1").arg(PathText(*copy)));
}

void MainWindow::CompareWith() {
  if (LeaveForm()) CompareWithProject(parts_, this);
}

void MainWindow::About() {
  if (parts_.state.project_file.empty()) return ShowAbout(parts_, this);
  frame_->ClickNode(frame_->NodeOf("about"));
}

void MainWindow::EarlierVersions() {
  // An open form would write its older rows over the restored version.
  if (!LeaveForm()) return;
  if (VersionsDialog(parts_, this).exec() == QDialog::Accepted) overview_->ShowProject();
}

void MainWindow::ShowPractice() {
  using State = PracticeProcess::State;
  switch (practice_.state()) {
    case State::kOff:
      start_->ShowPractice(practice_.problem(), true);
      break;
    case State::kStarting:
      start_->ShowPractice(QStringLiteral("The practice exchange is starting..."), false);
      break;
    case State::kReady:
      start_->ShowPractice(
          QStringLiteral("The practice exchange runs until you close this program. It listens on %1, port "
                         "%2, and accepts "
                         "any password. To connect to it, open a project and press Use Practice Exchange.")
              .arg(QString::fromLatin1(PracticeProcess::kHost))
              .arg(practice_.port()),
          false);
      break;
  }
  if (!wants_practice_ || practice_.state() == State::kStarting) return;
  wants_practice_ = false;
  if (practice_.state() == State::kReady) {
    ConnectToPractice();
  } else if (!practice_.problem().isEmpty()) {
    ShowBox(this, QMessageBox::Critical, practice_.problem());
  }
}

void MainWindow::UsePractice() {
  if (!AskYesNo(this, QStringLiteral(
                          "Do you want this project to connect to a practice exchange on this computer?\n"
                          "This replaces its connection settings."))) {
    return;
  }
  if (practice_.state() == PracticeProcess::State::kReady) {
    ConnectToPractice();
    return;
  }
  wants_practice_ = true;
  practice_.Start();
}

void MainWindow::ConnectToPractice() {
  const std::string& project = parts_.state.project_file;
  if (project.empty()) return;
  if (const std::string problem = WhyNoProject(parts_.store, project); !problem.empty()) {
    return ShowBox(this, QMessageBox::Critical, MessageText(problem, PageOf(parts_.settings)));
  }
  parts_.keep(project, kBeforePractice);
  const Status written = parts_.store.Update(project, [&](IniEdit& edit) {
    edit.Set(kHeaderSection, KeyName(&ConnectionSettings::by),
             std::to_string(static_cast<int>(LinkMode::kLan)));
    edit.Set(kHeaderSection, KeyName(&ConnectionSettings::dcpu), kDirect);
    edit.Set(kHeaderSection, KeyName(&ConnectionSettings::ip_host), PracticeProcess::kHost);
    edit.Set(kHeaderSection, KeyName(&ConnectionSettings::ip_port), std::to_string(practice_.port()));
  });
  if (!written.ok())
    ShowBox(this, QMessageBox::Critical, MessageText(written.message(), PageOf(parts_.settings)));
  overview_->ShowProject();
}

}  // namespace tarvok::desktop
