// The editors of routing.

#include "sections/editors.h"
#include "sections/routing/class_forms.h"
#include "sections/routing/e1_forms.h"
#include "sections/routing/frmDIDRedirect.h"
#include "sections/routing/frmGroupOut.h"
#include "sections/routing/frmIncomingLst.h"
#include "sections/routing/frmRoute.h"
#include "sections/routing/frmRouteMap.h"
#include "sections/routing/frmSetRoute.h"
#include "sections/routing/frmTenan.h"

namespace tarvok {

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

}  // namespace tarvok
