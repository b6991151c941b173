#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "frame/main_frame_view.h"
#include "sessions/transfer.h"

namespace tarvok::desktop {

/** How much of a project a session carries. */
enum class Carries { kNothing, kPart, kAll };

/** A button of a transfer form and the session behind it. */
struct TransferAction {
  std::string_view control;  // `cmdWrite`
  std::string_view text;
  std::string_view tip;
  bool loads;
  Carries carries;
  /** `folder` is what stands in the form's folder field, "" without one. */
  bool (*run)(Transfer& transfer, const std::string& folder);
};

/** In what one transfer form differs from the others. */
struct TransferKind {
  TransferForm form;
  std::string_view name;  // `frmConnect`
  std::string_view title;
  std::string_view log_head;  // first line of `send.log`
  std::vector<TransferAction> actions;
  bool has_folder = false;  // the billing form's, kept in the project
};

const TransferKind& ConnectKind();
const TransferKind& MiniBarKind();
const TransferKind& BillingKind();

/** The factory of a transfer form, shown in front of `window`. The parts must outlive it. */
FormFactory MakeTransferFactory(DesktopParts& parts, const TransferKind& kind, QWidget* window);

}  // namespace tarvok::desktop
