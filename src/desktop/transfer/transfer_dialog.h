#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

#include "desktop/transfer/direction_view.h"
#include "desktop/transfer/transfer_kind.h"
#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "desktop/window/file_dialogs.h"
#include "sessions/session_view.h"
#include "sessions/transfer.h"

namespace tarvok::desktop {

/**
 * A transfer form: `frmConnect`, `frmMiniBarCon` or `frmBilling`. It holds the connection while it is open,
 * and shows the log, progress and boxes of the running session.
 *
 * It is never closed from within a wait of the session. Closing it is ignored while a send talks to the
 * exchange. In a load, and in waits without a limit, closing it aborts the session; the form closes after the
 * session has ended.
 */
class TransferDialog : public QDialog, public SessionView, public Form {
 public:
  TransferDialog(DesktopParts& parts, const TransferKind& kind, const FormContext& context, QWidget* window);
  ~TransferDialog() override;

  std::string_view name() const override { return kind_.name; }
  void Show() override { exec(); }
  bool SaveFile() override { return true; }
  /** Closes an idle form and any dialog over it. During a session it refuses, with a line in the log
   * window. */
  bool Unload() override;

  void Log(std::string_view text) override;
  void Progress(int value, int end) override;
  void Elapsed(int seconds) override;
  void Box(BoxKind kind, std::string_view text) override;
  bool Ask(std::string_view question) override;
  bool AskWithCompare(std::string_view question, bool& compare) override;
  std::optional<std::string> AskSaveName() override;
  void ShowPassword(PasswordForm& form) override;
  void SetBusy(bool busy) override;
  void Advise(std::string_view text) override;
  void ShowPace(std::string_view text) override;

  void reject() override { Leave(); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLayout* MakeHead();
  QLayout* MakeButtons();
  QLayout* MakeLogColumn();
  QLayout* MakeFolder();
  QPushButton* MakeButton(std::string_view control, std::string_view text, std::string_view tip);
  void OpenTransfer();
  void ShowSummary();
  void Run(const TransferAction& action);
  void Remember(const TransferAction& action, bool done, const IniText& before);
  void Leave();
  bool MayGiveUp() const;
  void OpenSettings();
  void Browse();
  void KeepFolder();
  void WatchDebugWord(const QString& typed);
  QString Letters(std::string_view text) const;

  DesktopParts& parts_;
  const TransferKind& kind_;
  FileDialogs dialogs_;
  SendLog log_;
  std::unique_ptr<Transfer> transfer_;
  const TransferAction* running_ = nullptr;
  bool began_ = false;         // the session continued after its first question
  bool not_taken_ = false;     // the user did not keep what was loaded
  bool cancelled_ = false;     // by the user, at the password
  bool leaving_ = false;       // the connection is being closed with its last messages
  bool close_wanted_ = false;  // close the form after the session has ended
  QString debug_word_;

  QLabel* summary_ = nullptr;
  DirectionView* direction_ = nullptr;
  QPlainTextEdit* log_window_ = nullptr;
  QProgressBar* bar_ = nullptr;
  QLabel* elapsed_ = nullptr;
  QLabel* advice_ = nullptr;
  QLabel* pace_ = nullptr;
  QLineEdit* folder_ = nullptr;
  std::vector<QWidget*> idle_controls_;  // disabled while a session runs
};

}  // namespace tarvok::desktop
