#include "desktop/transfer/password_dialog.h"

#include <utility>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"
#include "desktop/transfer/character_filter.h"
#include "desktop/window/help.h"

namespace tarvok::desktop {
namespace {

constexpr int kFollow_ms = 50;

QLineEdit* MakePasswordField(const QString& name) {
  auto* field = new QLineEdit;
  field->setObjectName(name);
  field->setEchoMode(QLineEdit::Password);
  field->setMaxLength(static_cast<int>(kMostPasswordDigits));
  CharacterFilter::Set(field, [](QChar c) { return PasswordForm::Accepts(c.toLatin1()); });
  return field;
}

}  // namespace

PasswordDialog::PasswordDialog(PasswordForm& form, std::function<bool()> given_up, QWidget* parent)
    : QDialog(parent), form_(form), given_up_(std::move(given_up)) {
  setObjectName(QStringLiteral("frmPassword2"));
  setWindowTitle(QStringLiteral("Enter Password"));
  password_ = MakePasswordField(QStringLiteral("Text1"));
  changes_passwords_ = new QCheckBox(QStringLiteral("Change &Password"));
  changes_passwords_->setObjectName(QStringLiteral("chkPSW"));
  pages_ = new QTabWidget;
  for (int level = 1; level <= kPasswordLevels; ++level) {
    pages_->addTab(MakeLevel(level), QStringLiteral("Level &%1").arg(level));
  }
  pages_->hide();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  cancel_ = buttons->button(QDialogButtonBox::Cancel);
  ok_->setObjectName(QStringLiteral("Command1"));
  cancel_->setObjectName(QStringLiteral("Command2"));
  for (QPushButton* button : {ok_, cancel_}) button->setAutoDefault(false);  // the field handles Enter

  auto* entry = new QFormLayout;
  entry->addRow(QStringLiteral("&Enter Password"), password_);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addLayout(entry);
  layout->addWidget(changes_passwords_);
  layout->addWidget(pages_);
  layout->addWidget(buttons);

  connect(changes_passwords_, &QCheckBox::toggled, pages_, &QWidget::setVisible);
  connect(password_, &QLineEdit::returnPressed, this, [this] { EnterPressed(); });
  connect(ok_, &QPushButton::clicked, this, [this] { Ok(); });
  connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { ShowHelp(this, "frmPassword2"); });
  connect(&follow_, &QTimer::timeout, this, [this] { Follow(); });
  follow_.start(kFollow_ms);
  password_->setFocus();
}

QWidget* PasswordDialog::MakeLevel(int level) {
  LevelFields& fields = levels_[static_cast<std::size_t>(level) - 1];
  fields.changes = new QCheckBox(QStringLiteral("C&hange"));
  fields.changes->setObjectName(QStringLiteral("chkLV(%1)").arg(level));
  for (std::size_t i = 0; i < fields.new_password.size(); ++i) {
    fields.new_password[i] = MakePasswordField(QStringLiteral("txtPSW(%1,%2)").arg(level).arg(i));
    fields.new_password[i]->setEnabled(false);
    connect(fields.changes, &QCheckBox::toggled, fields.new_password[i], &QWidget::setEnabled);
    connect(fields.new_password[i], &QLineEdit::returnPressed, this, [this] { Ok(); });
  }
  auto* page = new QWidget;
  auto* layout = new QFormLayout(page);
  layout->addRow(fields.changes);
  layout->addRow(QStringLiteral("&New Password :"), fields.new_password[0]);
  layout->addRow(QStringLiteral("&Retype New Password :"), fields.new_password[1]);
  layout->addRow(MakeMuted(new QLabel(QStringLiteral("(Six-character; no spaces)"))));
  return page;
}

/** Qt makes OK the default button in any case, and Enter would press it after the field handled Enter. */
void PasswordDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QDialog::keyPressEvent(event);
  if (auto* button = qobject_cast<QPushButton*>(focusWidget()); button != nullptr) button->click();
}

void PasswordDialog::EnterPressed() {
  if (!changes_passwords_->isChecked()) {
    Ok();
    return;
  }
  const LevelFields& fields = levels_[static_cast<std::size_t>(pages_->currentIndex())];
  (fields.changes->isChecked() ? static_cast<QWidget*>(fields.new_password[0]) : fields.changes)->setFocus();
}

void PasswordDialog::FillForm() {
  form_.password = password_->text().toStdString();
  form_.changes_passwords = changes_passwords_->isChecked();
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    form_.levels[i] = {.changes = levels_[i].changes->isChecked(),
                       .password = levels_[i].new_password[0]->text().toStdString(),
                       .retyped = levels_[i].new_password[1]->text().toStdString()};
  }
}

void PasswordDialog::Ok() {
  if (busy_) return;
  FillForm();
  tried_ = true;
  SetBusy(true);
  form_.Ok();
  SetBusy(false);
  password_->setFocus();
  Follow();
}

void PasswordDialog::reject() {
  if (busy_) return;
  cancelled_ = true;
  form_.Cancel();
  Follow();
}

/** Called repeatedly: the form may close itself or clear its field when an error reply comes late. */
void PasswordDialog::Follow() {
  if (busy_) return;
  if (form_.open() && given_up_()) form_.Cancel();
  if (!form_.open()) {
    follow_.stop();
    done(form_.passed() ? QDialog::Accepted : QDialog::Rejected);
    return;
  }
  if (tried_ && form_.password.empty()) {
    tried_ = false;
    password_->clear();
    password_->setFocus();
  }
}

void PasswordDialog::SetBusy(bool busy) {
  busy_ = busy;
  for (QWidget* control :
       {static_cast<QWidget*>(password_), static_cast<QWidget*>(changes_passwords_),
        static_cast<QWidget*>(pages_), static_cast<QWidget*>(ok_), static_cast<QWidget*>(cancel_)}) {
    control->setEnabled(!busy);
  }
}

}  // namespace tarvok::desktop
