#include "desktop/window/commands.h"

#include "desktop/forms/editor_page.h"
#include "desktop/transfer/transfer_kind.h"

namespace tarvok::desktop {

std::vector<Command> Commands(DesktopParts& parts, MainWindow& window) {
  std::vector<Command> commands;
  for (const Editor* editor : Editors()) commands.push_back(EditorCommand(parts, *editor, window));
  const auto add_transfer = [&](std::string_view text, std::string_view key, const TransferKind& kind) {
    commands.push_back({.text = text,
                        .key = key,
                        .recorded = kind.name,
                        .make = MakeTransferFactory(parts, kind, &window),
                        .mode = ShowMode::kModal,
                        .saved_on_close = false,
                        .keeps_highlight = false});
  };
  add_transfer("30 - Transfer Mini Bar", "minibarconnect", MiniBarKind());
  commands.back().closed_by_name = false;
  add_transfer("31 - Transfer Config", "connect", ConnectKind());
  add_transfer("32 - Transfer File Billing", "billing", BillingKind());
  const auto make_about = [&parts, &window](const FormContext& context) {
    return std::make_unique<PaneForm>(window, "frmAbout", MakeAboutPage(parts, context.closed));
  };
  // There is no blank before this dash.
  commands.push_back({.text = "33- About",
                      .key = "about",
                      .recorded = "frmAbout",
                      .make = make_about,
                      .saved_on_close = false,
                      .needs_project = false});
  return commands;
}

}  // namespace tarvok::desktop
