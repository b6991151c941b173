#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "frame/command.h"
#include "sessions/transfer.h"

namespace tarvok::desktop {

/** How much of a project a session transfers. */
enum class Carries { kNothing, kPart, kAll };

/** A button of a transfer form and the session that it starts. */
struct TransferAction {
  std::string_view control;  // `cmdWrite`
  std::string_view text;
  std::string_view tip;
  bool loads;
  Carries carries;
  /** `folder` is the text of the form's folder field, "" if there is none. Returns whether the session
   * succeeded. */
  bool (*run)(Transfer& transfer, const std::string& folder);
};

/** What distinguishes the transfer forms. */
struct TransferKind {
  TransferForm form;
  std::string_view name;  // `frmConnect`
  std::string_view title;
  std::string_view log_head;  // first line of `send.log`
  std::vector<TransferAction> actions;
  bool has_folder = false;  // a folder field, stored in the project: the billing form
};

const TransferKind& ConnectKind();
const TransferKind& MiniBarKind();
const TransferKind& BillingKind();

/** Returns the factory of a transfer form, which is shown in front of `window`. The arguments must outlive
 * it. */
FormFactory MakeTransferFactory(DesktopParts& parts, const TransferKind& kind, QWidget* window);

}  // namespace tarvok::desktop
