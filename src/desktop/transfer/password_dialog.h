#pragma once

#include <array>
#include <functional>

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "desktop/uses.h"
#include "sessions/password_form.h"

namespace tarvok::desktop {

/** `frmPassword2` on the screen: fills the form's fields, calls its handlers, and goes when the form has
 * closed itself. */
class PasswordDialog : public QDialog {
 public:
  /** `given_up`: the session's own form is closing, and this one with it. */
  PasswordDialog(PasswordForm& form, std::function<bool()> given_up, QWidget* parent);

  /** Closing the window is "Cancel"; in the middle of a try it does nothing. */
  void reject() override;
  /** The user ended it, not the exchange. */
  bool cancelled() const { return cancelled_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct LevelFields {
    QCheckBox* changes = nullptr;
    std::array<QLineEdit*, 2> new_password{};
  };

  QWidget* MakeLevel(int level);
  void EnterPressed();
  void Ok();
  void FillForm();
  void Follow();
  void SetBusy(bool busy);

  PasswordForm& form_;
  std::function<bool()> given_up_;
  QLineEdit* password_ = nullptr;
  QCheckBox* changes_passwords_ = nullptr;
  QTabWidget* pages_ = nullptr;
  std::array<LevelFields, PasswordForm::kLevels> levels_{};
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QTimer follow_;
  bool busy_ = false;
  bool cancelled_ = false;
  bool tried_ = false;  // the form holds a password that it clears when it is wrong
};

}  // namespace tarvok::desktop
