#pragma once

#include <functional>

#include <QMessageBox>
#include <QString>

namespace tarvok {

/** A message with OK, titled as all of them are. */
void ShowBox(QWidget* parent, QMessageBox::Icon icon, const QString& text);
/** Yes and No; closing the box by its window is No. */
bool AskYesNo(QWidget* parent, const QString& question);
/** `frmMsgBox`: the question in front of a send, with the box "Compare Byte". `show_changes` is behind a button
 * of the box, which stays open over it. */
bool AskWithCompareBox(QWidget* parent, const QString& question, bool& compare,
                       const std::function<void(QWidget* box)>& show_changes);

}  // namespace tarvok
