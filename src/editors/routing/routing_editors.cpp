// The editors of routing.

#include "editors/editors.h"
#include "editors/routing/class_forms.h"
#include "editors/routing/e1_forms.h"
#include "editors/routing/frmDIDRedirect.h"
#include "editors/routing/frmGroupOut.h"
#include "editors/routing/frmIncomingLst.h"
#include "editors/routing/frmRoute.h"
#include "editors/routing/frmRouteMap.h"
#include "editors/routing/frmSetRoute.h"
#include "editors/routing/frmTenan.h"

namespace tarvok::editors {

std::span<const Editor> RoutingEditors() {
  static constexpr Editor kEditors[] = {
      {"incominglist", {"frmIncomingLst", "frmIncomingLst", "Incoming List"}, Make<frmIncomingLst>},
      {"tenan", {"frmTenan", "frmTenan", "Tenan"}, Make<frmTenan>},
      {"routemap", {"frmRouteMap", "frmRouteMap", "Route Map Digit"}, Make<frmRouteMap>},
      {"route", {"frmRoute", "frmRoute", "Route List"}, Make<frmRoute>},
      {"groupout", {"frmGroupOut", "frmGroupOut", "Group Out"}, Make<frmGroupOut>},
      {"e1mapping", {"frmE1Map", "frmE1Map", "E1 Mapping"}, Make<frmE1Map>},
      {"e1numbering", {"frmE1Numbering", "frmE1Numbering", "E1 Numbering"}, Make<frmE1Numbering>},
      {"didredirect", {"frmDIDRedirect", "frmDIDRedirect", "DID Redirect"}, Make<frmDIDRedirect>},
      {"digitcor", {"frmClassDigit", "frmClassDigit", "Ban/Allow Number"}, Make<frmClassDigit>},
      {"corgroup", {"frmCORGroup", "frmCORGroup", "Ban Number Group"}, Make<frmCORGroup>},
      {"setroute", {"frmSetRoute", "frmSetRoute", "PBX Link Table"}, Make<frmSetRoute>},
  };
  return kEditors;
}

}  // namespace tarvok::editors
