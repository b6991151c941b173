#include "desktop/window/main_window.h"

#include <chrono>
#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QScreen>
#include <QTimer>

#include "desktop/look/shown_text.h"
#include "desktop/overview/last_transfer.h"
#include "desktop/window/boxes.h"
#include "desktop/window/help.h"
#include "store/new_project.h"

namespace tarvok::desktop {
namespace {

constexpr std::chrono::milliseconds kAfterPaint{100};
constexpr QSize kFirstSize(1240, 800);
constexpr QSize kFrameOfWindow(16, 48);

/** The place of the window is kept for each size of screen: what fits at the desk does not fit on a laptop. */
std::string GeometryKey() {
  const QSize screen = QGuiApplication::primaryScreen()->size();
  return std::string(desktop_key::kGeometry) + std::to_string(screen.width()) + "x" +
         std::to_string(screen.height());
}

}  // namespace

MainWindow::MainWindow(DesktopParts& parts) : parts_(parts), dialogs_(parts.settings), practice_(parts) {
  setObjectName(QStringLiteral("MDIForm1"));
  MakeActions();
  MakeMenus();
  MakeViewMenu();
  MakeToolBar();
  MakePanes();
  MakeStatusBar();
  RestoreLayout();
}

void MainWindow::Show(const FrameLook& look) {
  // Qt replaces "[*]" in titles by its mark of unsaved changes; doubled it is shown.
  setWindowTitle(PathText(look.title).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
  new_->setEnabled(look.can_open);
  open_->setEnabled(look.can_open);
  close_->setEnabled(look.can_close);
  for (QAction* of_project : {versions_, find_action_, save_as_, duplicate_, compare_})
    of_project->setEnabled(look.has_commands);
  letters_->setEnabled(!look.has_editor);
  // An open form has read its texts with the current code page.
  const QString why =
      look.has_editor ? QStringLiteral("Close the open form to change the letters") : QString();
  letters_->setToolTip(why);
  letters_->setStatusTip(why);
  if (find_ != nullptr && !look.has_commands) find_->hide();
  tree_->ShowCommands(look.has_commands ? std::span(frame_->commands()) : std::span<const Command>());
  if (!look.has_commands) {
    pane_->setCurrentWidget(start_);
  } else if (!look.has_editor) {
    if (overview_ == nullptr) MakeOverview();
    overview_->ShowProject();
    pane_->setCurrentWidget(overview_);
  }
  if (pane_->currentWidget() != closed_) DropClosed();
}

void MainWindow::ShowRecentFiles(const std::vector<std::string>& paths) {
  dash3_->setVisible(!paths.empty());
  for (std::size_t i = 0; i < recent_.size(); ++i) {
    recent_[i]->setVisible(i < paths.size());
    if (i >= paths.size()) continue;
    const QString path = PathText(paths[i]);
    recent_[i]->setText(QString(path).replace(QLatin1Char('&'), QStringLiteral("&&")));
  }
  start_->ShowRecentFiles(paths);
}

void MainWindow::SetBusyPointer(bool busy) {
  if (std::exchange(busy_, busy) == busy) return;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void MainWindow::CriticalBox(std::string_view text) {
  ShowBox(this, QMessageBox::Critical, MessageText(text, PageOf(parts_.settings)));
}

bool MainWindow::Ask(std::string_view question) {
  if (!AskYesNo(this, MessageText(question, PageOf(parts_.settings)))) return false;
  if (question == kFileExists) parts_.keep(new_file_, kBeforeNew);
  return true;
}

std::string MainWindow::ChooseNewFile() {
  return new_file_ = WithProjectExtension(dialogs_.ChooseNewFile(this, QStringLiteral("New")));
}

void MainWindow::New() {
  const bool was_open = !parts_.state.project_file.empty();
  frame_->New();
  if (was_open || parts_.state.project_file.empty()) return;
  // An older project may have had that name.
  ForgetLastTransfer(parts_.settings, parts_.store.files(), parts_.state.project_file);
  overview_->ShowProject();
}

std::string MainWindow::ChooseExistingFile() {
  return dialogs_.ChooseExistingFile(this, QStringLiteral("Open"));
}

void MainWindow::EndProgram() {
  ending_ = true;
  close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!ending_ && !frame_->MayEnd()) {
    event->ignore();
    return;
  }
  KeepLayout();
  event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  // Another program may have written the project meanwhile.
  const bool back = event->type() == QEvent::ActivationChange && isActiveWindow();
  if (back && overview_ != nullptr && pane_->currentWidget() == overview_) overview_->ShowProject();
}

void MainWindow::ShowInPane(QWidget* widget) {
  pane_->addWidget(widget);
  pane_->setCurrentWidget(widget);
  tree_->SetCurrent(parts_.state.clicked_node);  // a jump opens a form without a click in the tree
  widget->setFocus(Qt::OtherFocusReason);
  DropClosed();
}

void MainWindow::RemoveFromPane(QWidget* widget) {
  DropClosed();
  closed_ = widget;
  if (widget->isAncestorOf(QApplication::focusWidget())) FocusTree();
}

void MainWindow::DropClosed() {
  if (closed_ == nullptr) return;
  // If it were deleted as a child of the pane, its area would be painted again.
  closed_->setParent(&to_delete_);
  QTimer::singleShot(kAfterPaint, closed_.data(), &QObject::deleteLater);
  closed_.clear();
}

void MainWindow::Help() {
  ShowHelp(this, parts_.state.active_form_name);
}

void MainWindow::SwitchSides() {
  if (tree_->hasFocus()) {
    pane_->currentWidget()->setFocus(Qt::ShortcutFocusReason);
    if (!pane_->isAncestorOf(QApplication::focusWidget()) ||
        QApplication::focusWidget() == pane_->currentWidget()) {
      pane_->currentWidget()->nextInFocusChain()->setFocus(Qt::TabFocusReason);
    }
  } else {
    FocusTree();
  }
}

void MainWindow::OpenTransfer() {
  frame_->ClickNode(frame_->NodeOf("connect"));
}

void MainWindow::RestoreLayout() {
  constexpr int kTreeWidth = 240;
  const auto kept = [&](std::string_view key) {
    return QByteArray::fromBase64(QByteArray::fromStdString(parts_.settings.Get(desktop_key::kGroup, key)));
  };
  if (!restoreGeometry(kept(GeometryKey()))) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    resize(kFirstSize.boundedTo(screen.size() - kFrameOfWindow));
    move(screen.center() - rect().center());
  }
  if (!splitter_->restoreState(kept(desktop_key::kSplitter)))
    splitter_->setSizes({kTreeWidth, width() - kTreeWidth});
}

void MainWindow::KeepLayout() {
  const auto keep = [&](std::string_view key, const QByteArray& bytes) {
    parts_.settings.Set(desktop_key::kGroup, key, bytes.toBase64().toStdString());
  };
  keep(GeometryKey(), saveGeometry());
  keep(desktop_key::kSplitter, splitter_->saveState());
}

}  // namespace tarvok::desktop
