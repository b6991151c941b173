#pragma once

#include <functional>

#include <QMessageBox>
#include <QString>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** A message with OK, titled as all of them are. */
void ShowBox(QWidget* parent, QMessageBox::Icon icon, const QString& text);
struct YesNo {
  QMessageBox::StandardButton enter = QMessageBox::Yes;  // the button that Return takes
  bool must_be_answered = false;  // Esc and the window's X do nothing; else they are No
};

bool AskYesNo(QWidget* parent, const QString& question, const YesNo& how = {});
/** The question in front of a save over what another program wrote: Return and Esc are No. `show_changes` is
 * behind a button of the box, which stays open over it. */
bool AskToOverwriteChanges(QWidget* parent, const QString& question,
                           const std::function<void(QWidget* box)>& show_changes);
/** `frmMsgBox`: the question in front of a send, with the box "Compare Byte". `show_changes` is behind a button
 * of the box, which stays open over it. */
bool AskWithCompareBox(QWidget* parent, const QString& question, bool& compare,
                       const std::function<void(QWidget* box)>& show_changes);

}  // namespace tarvok::desktop
