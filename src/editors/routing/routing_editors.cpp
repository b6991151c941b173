// The editors of routing.

#include "editors/editors.h"
#include "editors/routing/ban_allow_editor.h"
#include "editors/routing/ban_number_group_editor.h"
#include "editors/routing/did_redirect_editor.h"
#include "editors/routing/e1_mapping_editor.h"
#include "editors/routing/e1_numbering_editor.h"
#include "editors/routing/group_out_editor.h"
#include "editors/routing/incoming_list_editor.h"
#include "editors/routing/pbx_link_editor.h"
#include "editors/routing/route_list_editor.h"
#include "editors/routing/route_map_editor.h"
#include "editors/routing/tenant_editor.h"

namespace tarvok::editors {

std::span<const Editor> RoutingEditors() {
  static constexpr Editor kEditors[] = {
      {"incominglist", {"frmIncomingLst", "frmIncomingLst", "Incoming List"}, Make<IncomingListEditor>},
      {"tenan", {"frmTenan", "frmTenan", "Tenan"}, Make<TenantEditor>},
      {"routemap", {"frmRouteMap", "frmRouteMap", "Route Map Digit"}, Make<RouteMapEditor>},
      {"route", {"frmRoute", "frmRoute", "Route List"}, Make<RouteListEditor>},
      {"groupout", {"frmGroupOut", "frmGroupOut", "Group Out"}, Make<GroupOutEditor>},
      {"e1mapping", {"frmE1Map", "frmE1Map", "E1 Mapping"}, Make<E1MappingEditor>},
      {"e1numbering", {"frmE1Numbering", "frmE1Numbering", "E1 Numbering"}, Make<E1NumberingEditor>},
      {"didredirect", {"frmDIDRedirect", "frmDIDRedirect", "DID Redirect"}, Make<DidRedirectEditor>},
      {"digitcor", {"frmClassDigit", "frmClassDigit", "Ban/Allow Number"}, Make<BanAllowEditor>},
      {"corgroup", {"frmCORGroup", "frmCORGroup", "Ban Number Group"}, Make<BanNumberGroupEditor>},
      {"setroute", {"frmSetRoute", "frmSetRoute", "PBX Link Table"}, Make<PbxLinkEditor>},
  };
  return kEditors;
}

}  // namespace tarvok::editors
