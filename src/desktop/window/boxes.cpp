#include "desktop/window/boxes.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

#include "desktop/look/shown_text.h"
#include "frame/main_frame.h"

namespace tarvok::desktop {
namespace {

class Question : public QMessageBox {
 public:
  Question(QWidget* parent, const QString& text, const YesNo& how)
      : QMessageBox(QMessageBox::Question, Words(kBoxTitle), text, Yes | No, parent), how_(how) {
    setTextFormat(Qt::PlainText);
    setDefaultButton(how.enter);
    setEscapeButton(No);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (how_.escape == YesNo::kIsNo || !event->matches(QKeySequence::Cancel))
      return QMessageBox::keyPressEvent(event);
    if (how_.escape == YesNo::kIsNoAnswer) done(NoButton);
  }
  void closeEvent(QCloseEvent* event) override {
    if (how_.escape == YesNo::kIsNo) return QMessageBox::closeEvent(event);
    event->ignore();
    if (how_.escape == YesNo::kIsNoAnswer) done(NoButton);
  }

 private:
  YesNo how_;
};

/** Adds a button that calls `look` and leaves the question open. All other buttons of a message box close
 * it. */
void AddLook(Question& box, const QString& text, const QString& tip,
             const std::function<void(QWidget* box)>& look) {
  QPushButton* button = box.addButton(text, QMessageBox::HelpRole);
  button->setObjectName(QStringLiteral("cmdChanges"));
  button->setToolTip(tip);
  QObject::disconnect(button, &QPushButton::clicked, nullptr, nullptr);
  QObject::connect(button, &QPushButton::clicked, &box, [&box, look] { look(&box); });
}

}  // namespace

void ShowBox(QWidget* parent, QMessageBox::Icon icon, const QString& text) {
  QMessageBox box(icon, Words(kBoxTitle), text, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

bool AskYesNo(QWidget* parent, const QString& question, const YesNo& how) {
  return Question(parent, question, how).exec() == QMessageBox::Yes;
}

std::optional<bool> AskYesNoOrNeither(QWidget* parent, const QString& question) {
  const int answer = Question(parent, question, {.escape = YesNo::kIsNoAnswer}).exec();
  if (answer != QMessageBox::Yes && answer != QMessageBox::No) return {};
  return answer == QMessageBox::Yes;
}

bool AskToOverwriteChanges(QWidget* parent, const QString& question,
                           const std::function<void(QWidget* box)>& show_changes) {
  Question box(parent, question, {.enter = QMessageBox::No});
  AddLook(box, QStringLiteral("&What changed?"),
          QStringLiteral("Compares the project as this form read it with the file as it is now"),
          show_changes);
  return box.exec() == QMessageBox::Yes;
}

bool AskToClearReferences(QWidget* parent, const QString& question,
                          const std::function<void(QWidget* box)>& show_places) {
  Question box(parent, question, {});
  AddLook(box, QStringLiteral("&Where?"), QStringLiteral("Lists the places that become not set"),
          show_places);
  return box.exec() == QMessageBox::Yes;
}

bool AskWithCompareBox(QWidget* parent, const QString& question, bool& compare,
                       const std::function<void(QWidget* box)>& show_changes) {
  Question box(parent, question, {});
  box.setObjectName(QStringLiteral("frmMsgBox"));
  auto* check = new QCheckBox(QStringLiteral("Compare &Byte"), &box);
  check->setToolTip(QStringLiteral("Reads every section back after sending it and compares the bytes"));
  check->setChecked(compare);
  box.setCheckBox(check);
  AddLook(box, QStringLiteral("&What will change?"),
          QStringLiteral("Compares the project with what was last sent to or loaded from the exchange"),
          show_changes);
  if (box.exec() != QMessageBox::Yes) return false;
  compare = check->isChecked();
  return true;
}

}  // namespace tarvok::desktop
