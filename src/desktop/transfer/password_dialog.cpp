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

constexpr int kMostDigits = 6;
constexpr int kFollow_ms = 50;

QLineEdit* MakePasswordField(const QString& name) {
  auto* field = new QLineEdit;
  field->setObjectName(name);
  field->setEchoMode(QLineEdit::Password);
  field->setMaxLength(kMostDigits);
  CharacterFilter::Set(field, [](QChar c) { return PasswordForm::Accepts(c.toLatin1()); });
  return field;
}

}  // namespace

PasswordDialog::PasswordDialog(PasswordForm& form, std::function<bool()> given_up, QWidget* parent)
    : QDialog(parent), form_(form), given_up_(std::move(given_up)) {
  setObjectName(QStringLiteral("frmPassword2"));
  setWindowTitle(QStringLiteral("Enter Password"));
  Text1_ = MakePasswordField(QStringLiteral("Text1"));
  chkPSW_ = new QCheckBox(QStringLiteral("Change &Password"));
  chkPSW_->setObjectName(QStringLiteral("chkPSW"));
  pages_ = new QTabWidget;
  for (int level = 1; level <= PasswordForm::kLevels; ++level) {
    pages_->addTab(MakeLevel(level), QStringLiteral("Level &%1").arg(level));
  }
  pages_->hide();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  Command1_ = buttons->button(QDialogButtonBox::Ok);
  Command2_ = buttons->button(QDialogButtonBox::Cancel);
  Command1_->setObjectName(QStringLiteral("Command1"));
  Command2_->setObjectName(QStringLiteral("Command2"));
  for (QPushButton* button : {Command1_, Command2_})
    button->setAutoDefault(false);  // Enter has a rule of its own

  auto* entry = new QFormLayout;
  entry->addRow(QStringLiteral("&Enter Password"), Text1_);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addLayout(entry);
  layout->addWidget(chkPSW_);
  layout->addWidget(pages_);
  layout->addWidget(buttons);

  connect(chkPSW_, &QCheckBox::toggled, pages_, &QWidget::setVisible);
  connect(Text1_, &QLineEdit::returnPressed, this, [this] { EnterPressed(); });
  connect(Command1_, &QPushButton::clicked, this, [this] { Ok(); });
  connect(Command2_, &QPushButton::clicked, this, [this] { reject(); });
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { ShowHelp(this, "frmPassword2"); });
  connect(&follow_, &QTimer::timeout, this, [this] { Follow(); });
  follow_.start(kFollow_ms);
  Text1_->setFocus();
}

QWidget* PasswordDialog::MakeLevel(int level) {
  LevelFields& fields = levels_[static_cast<std::size_t>(level) - 1];
  fields.chkLV = new QCheckBox(QStringLiteral("C&hange"));
  fields.chkLV->setObjectName(QStringLiteral("chkLV(%1)").arg(level));
  for (std::size_t i = 0; i < fields.txtPSW.size(); ++i) {
    fields.txtPSW[i] = MakePasswordField(QStringLiteral("txtPSW(%1,%2)").arg(level).arg(i));
    fields.txtPSW[i]->setEnabled(false);
    connect(fields.chkLV, &QCheckBox::toggled, fields.txtPSW[i], &QWidget::setEnabled);
    connect(fields.txtPSW[i], &QLineEdit::returnPressed, this, [this] { Ok(); });
  }
  auto* page = new QWidget;
  auto* layout = new QFormLayout(page);
  layout->addRow(fields.chkLV);
  layout->addRow(QStringLiteral("&New Password :"), fields.txtPSW[0]);
  layout->addRow(QStringLiteral("&Retype New Password :"), fields.txtPSW[1]);
  layout->addRow(MakeMuted(new QLabel(QStringLiteral("(Six-character; no spaces)"))));
  return page;
}

/** Qt makes OK the default button whatever it is told, and Enter would press it behind the field's own rule. */
void PasswordDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QDialog::keyPressEvent(event);
  if (auto* button = qobject_cast<QPushButton*>(focusWidget()); button != nullptr) button->click();
}

void PasswordDialog::EnterPressed() {
  if (!chkPSW_->isChecked()) {
    Ok();
    return;
  }
  const LevelFields& fields = levels_[static_cast<std::size_t>(pages_->currentIndex())];
  (fields.chkLV->isChecked() ? static_cast<QWidget*>(fields.txtPSW[0]) : fields.chkLV)->setFocus();
}

void PasswordDialog::FillForm() {
  form_.Text1 = Text1_->text().toStdString();
  form_.chkPSW = chkPSW_->isChecked();
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    form_.levels[i] = {.chkLV = levels_[i].chkLV->isChecked(),
                       .password = levels_[i].txtPSW[0]->text().toStdString(),
                       .retyped = levels_[i].txtPSW[1]->text().toStdString()};
  }
}

void PasswordDialog::Ok() {
  if (busy_) return;
  FillForm();
  tried_ = true;
  SetBusy(true);
  form_.Command1();
  SetBusy(false);
  Text1_->setFocus();
  Follow();
}

void PasswordDialog::reject() {
  if (busy_) return;
  cancelled_ = true;
  form_.Command2();
  Follow();
}

/** The form may close itself or clear its field on its own, when an error reply comes late. */
void PasswordDialog::Follow() {
  if (busy_) return;
  if (form_.open() && given_up_()) form_.Command2();
  if (!form_.open()) {
    follow_.stop();
    done(form_.passed() ? QDialog::Accepted : QDialog::Rejected);
    return;
  }
  if (tried_ && form_.Text1.empty()) {
    tried_ = false;
    Text1_->clear();
    Text1_->setFocus();
  }
}

void PasswordDialog::SetBusy(bool busy) {
  busy_ = busy;
  for (QWidget* control :
       {static_cast<QWidget*>(Text1_), static_cast<QWidget*>(chkPSW_), static_cast<QWidget*>(pages_),
        static_cast<QWidget*>(Command1_), static_cast<QWidget*>(Command2_)}) {
    control->setEnabled(!busy);
  }
}

}  // namespace tarvok::desktop
