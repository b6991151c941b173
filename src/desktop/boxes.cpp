#include "desktop/boxes.h"

#include <QCheckBox>
#include <QPushButton>

#include "desktop/shown_text.h"
#include "shell/main_frame.h"

namespace tarvok {
namespace {

bool RunQuestion(QMessageBox& box) {
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

}  // namespace

void ShowBox(QWidget* parent, QMessageBox::Icon icon, const QString& text) {
  QMessageBox box(icon, Words(kBoxTitle), text, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

bool AskYesNo(QWidget* parent, const QString& question) {
  QMessageBox box(QMessageBox::Question, Words(kBoxTitle), question, QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  return RunQuestion(box);
}

bool AskWithCompareBox(QWidget* parent, const QString& question, bool& compare,
                       const std::function<void(QWidget* box)>& show_changes) {
  QMessageBox box(QMessageBox::Question, Words(kBoxTitle), question, QMessageBox::NoButton, parent);
  box.setObjectName(QStringLiteral("frmMsgBox"));
  box.setTextFormat(Qt::PlainText);
  auto* check = new QCheckBox(QStringLiteral("Compare &Byte"), &box);
  check->setToolTip(QStringLiteral("Reads every section back after sending it and compares the bytes"));
  check->setChecked(compare);
  box.setCheckBox(check);
  QPushButton* changes = box.addButton(QStringLiteral("&What will change?"), QMessageBox::HelpRole);
  changes->setObjectName(QStringLiteral("cmdChanges"));
  changes->setToolTip(QStringLiteral("Compares the project with what the exchange got or gave last"));
  // A button of a message box closes it; this one is a look aside.
  QObject::disconnect(changes, &QPushButton::clicked, nullptr, nullptr);
  QObject::connect(changes, &QPushButton::clicked, &box, [&] { show_changes(&box); });
  if (!RunQuestion(box)) return false;
  compare = check->isChecked();
  return true;
}

}  // namespace tarvok
