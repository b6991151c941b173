#pragma once

#include <array>
#include <string_view>

#include "project/uses.h"

namespace tarvok::project {

/** How a form is shown: next to the tree, which stays usable, or as a modal window. */
enum class ShowMode { kChild, kModal };

/** A command of the tree and the form that it opens. */
struct Command {
  std::string_view text;           // of the node
  std::string_view key;            // identifies the node
  std::string_view recorded;       // `ActiveFormName` that the form sets when it loads
  std::string_view compared = {};  // what a click compares with that name; empty: `recorded`
  ShowMode mode = ShowMode::kChild;
  bool closed_by_name = true;  // CloseActiveForm can close the form
  bool saved_on_close = true;  // CloseActiveForm saves its changes first
  bool keeps_highlight = true;
  bool needs_system_file = false;
  bool needs_project = true;  // it reads the open project's file

  /** A click finds its form already open if this is the active form's name. */
  constexpr std::string_view CompareName() const { return compared.empty() ? recorded : compared; }
};

/** The 33 commands in the order of their nodes; command n has index n - 1 here and n + 1 in the tree. */
inline constexpr std::array<Command, 33> kCommands = {{
    {"1 - Setup Number", "ext", "frmExtension"},
    {"2 - Port Define", "portdefine", "frmPortDef"},
    // A click compares a different name from the recorded one, so a second click closes and reopens the form.
    {.text = "3 - Port Config",
     .key = "portconfig",
     .recorded = "frmPortConfigDefine",
     .compared = "frmPortConfigDef"},
    {"4 - Boss and Secretary", "boss", "frmBoss"},
    {"5 - Link Trunk Number", "linktrunk", "frmLinkTrunk"},
    {"6 - Key Dial Phone Number", "dialphone", "frmDialPhone"},
    {"7 - Call Forward", "callforward", "frmCallFW"},
    {"8 - Voice Mail Box", "vmbox", "frmVMBox"},
    {"9 - Account", "account", "frmAccount"},
    {"10 - Hunt Group", "groupofhunt", "frmGroupOfHunt"},
    {"11 - Incoming List", "incominglist", "frmIncomingLst"},
    {"12 - Tenan", "tenan", "frmTenan"},
    {"13 - Route Map Digit", "routemap", "frmRouteMap"},
    {"14 - Route List", "route", "frmRoute"},
    {"15 - Group Out", "groupout", "frmGroupOut"},
    {"16 - E1 Mapping", "e1mapping", "frmE1Map"},
    {"17 - E1 Numbering", "e1numbering", "frmE1Numbering"},
    {"18 - DID Redirect", "didredirect", "frmDIDRedirect"},
    {"19 - Ban/Allow Number", "digitcor", "frmClassDigit"},
    {"20 - Ban Number Group", "corgroup", "frmCORGroup"},
    {"21 - System Configuration", "systemconfig", "frmSystemConfig"},
    {"22 - VM Call Back", "vmcallback", "frmVMCallBack"},
    {"23 - PABX Mode", "pabxmode", "frmPABXMode"},
    {.text = "24 - Billing Mode",
     .key = "billingmode",
     .recorded = "frmBillingMode",
     .needs_system_file = true},
    {.text = "25 - Mini Bar", .key = "minibar", .recorded = "frmMiniBar", .keeps_highlight = false},
    {"26 - Run Script", "runscript", "frmRunScript"},
    {"27 - PBX Link Table", "setroute", "frmSetRoute"},
    {"28 - IP PBX", "setip", "frmSetIP"},
    {"29 - Setup Key Config", "setupkey", "frmSetupKey"},
    {.text = "30 - Transfer Mini Bar",
     .key = "minibarconnect",
     .recorded = "frmMiniBarCon",
     .mode = ShowMode::kModal,
     .closed_by_name = false,
     .keeps_highlight = false},
    {.text = "31 - Transfer Config",
     .key = "connect",
     .recorded = "frmConnect",
     .mode = ShowMode::kModal,
     .saved_on_close = false,
     .keeps_highlight = false},
    {.text = "32 - Transfer File Billing",
     .key = "billing",
     .recorded = "frmBilling",
     .mode = ShowMode::kModal,
     .saved_on_close = false,
     .keeps_highlight = false},
    // There is no blank before this dash.
    {.text = "33- About",
     .key = "about",
     .recorded = "frmAbout",
     .saved_on_close = false,
     .needs_project = false},
}};

inline constexpr std::string_view kRootText = "Setup PBX";
inline constexpr int kRootNode = 1;
inline constexpr int kFirstCommandNode = 2;

/** The command of a tree node; nullptr for the root and for a node that does not exist. */
constexpr const Command* CommandOfNode(int node) {
  const int index = node - kFirstCommandNode;
  return index >= 0 && index < static_cast<int>(kCommands.size())
             ? &kCommands[static_cast<std::size_t>(index)]
             : nullptr;
}

}  // namespace tarvok::project
