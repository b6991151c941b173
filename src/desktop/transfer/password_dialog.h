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

/** Shows `frmPassword2`: fills the form's fields, calls its handlers, and closes when the form has closed
 * itself. */
class PasswordDialog : public QDialog {
 public:
  /** `given_up` returns true if the form of the session is closing; then this dialog closes too. */
  PasswordDialog(PasswordForm& form, std::function<bool()> given_up, QWidget* parent);

  /** Closing the window means "Cancel"; during a try it does nothing. */
  void reject() override;
  /** True if the user ended the dialog, not the exchange. */
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
  std::array<LevelFields, kPasswordLevels> levels_{};
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QTimer follow_;
  bool busy_ = false;
  bool cancelled_ = false;
  bool tried_ = false;  // the form holds a password, and clears it if it is wrong
};

}  // namespace tarvok::desktop
