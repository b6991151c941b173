#pragma once

#include <functional>
#include <optional>

#include <QMessageBox>
#include <QString>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Shows a modal message with OK. */
void ShowBox(QWidget* parent, QMessageBox::Icon icon, const QString& text);

struct YesNo {
  QMessageBox::StandardButton enter = QMessageBox::Yes;      // the button that Return presses
  enum { kIsNo, kDoesNothing, kIsNoAnswer } escape = kIsNo;  // Esc, and closing the window
};

/** Asks a modal question; true for Yes. */
bool AskYesNo(QWidget* parent, const QString& question, const YesNo& how = {});
/** The same, but Esc and closing the box answer neither. */
std::optional<bool> AskYesNoOrNeither(QWidget* parent, const QString& question);
/** Asks before a save overwrites what another program wrote; Return and Esc mean No. One button of the box
 * calls `show_changes` with the box as parent; the box stays open. */
bool AskToOverwriteChanges(QWidget* parent, const QString& question,
                           const std::function<void(QWidget* box)>& show_changes);
/** Asks before a save clears what refers to removed rows. One button of the box calls `show_places` in the same
 * way. */
bool AskToClearReferences(QWidget* parent, const QString& question,
                          const std::function<void(QWidget* box)>& show_places);
/** `frmMsgBox`: asks before a send, with the check box "Compare Byte". True for Yes; only then `compare` gets
 * the state of the check box. One button calls `show_changes` with the box as parent; the box stays open. */
bool AskWithCompareBox(QWidget* parent, const QString& question, bool& compare,
                       const std::function<void(QWidget* box)>& show_changes);

}  // namespace tarvok::desktop
