#include "sections/tables.h"

#include "sections/ports/account.h"
#include "sections/ports/assign.h"
#include "sections/ports/boss.h"
#include "sections/ports/hunt_group.h"
#include "sections/ports/key_dss.h"
#include "sections/ports/name.h"
#include "sections/ports/number_tables.h"
#include "sections/ports/port_config.h"
#include "sections/ports/port_def.h"
#include "sections/ports/vm_call_back.h"
#include "sections/routing/class_digit.h"
#include "sections/routing/class_group.h"
#include "sections/routing/did_redirect.h"
#include "sections/routing/e1_map.h"
#include "sections/routing/e1_number.h"
#include "sections/routing/group_out.h"
#include "sections/routing/incoming_list.h"
#include "sections/routing/route.h"
#include "sections/routing/route_list.h"
#include "sections/routing/route_map_digit.h"
#include "sections/routing/tbl_route.h"
#include "sections/routing/tenan.h"
#include "sections/system/billing_mode.h"
#include "sections/system/mini_bar.h"
#include "sections/system/pabx_mode.h"
#include "sections/system/pbx_ip.h"
#include "sections/system/run_script.h"
#include "sections/system/system_numbers.h"
#include "sections/system/system_times.h"

namespace tarvok::sections {
namespace {

constexpr const Table* kTables[] = {
    // SystemConfig
    &pabx_mode::kTable,
    &system_times::kWeekdayTables[0],
    &system_times::kWeekdayTables[1],
    &system_times::kWeekdayTables[2],
    &system_times::kWeekdayTables[3],
    &system_times::kWeekdayTables[4],
    &system_times::kWeekdayTables[5],
    &system_times::kWeekdayTables[6],
    &system_times::kHolidays,
    &system_numbers::kVoiceMail,
    &system_numbers::kRecord,
    &system_numbers::kMusicCard,
    &system_numbers::kMusicPort,
    &billing_mode::kCountry,
    &billing_mode::kTable,
    // Ports and numbers
    &port_def::kTable,
    &port_config::kTable,
    &assign::kTable,
    &name::kTable,
    &hunt_group::kTable,
    &account::kTable,
    &key_dss::kKeys,
    &key_dss::kDss,
    &boss::kTable,
    &link_trunk::kTable,
    &dial_phone::kTable,
    &vm_call_back::kTable,
    // Routing
    &route_map_digit::kTable,
    &route_list::kTable,
    &route::kTable,
    &group_out::kTable,
    &class_digit::kBanTable,
    &class_digit::kAllowTable,
    &class_group::kTable,
    &incoming_list::kTable,
    &tenan::kDayTable,
    &tenan::kNightTable,
    &tenan::kDayHighTable,
    &tenan::kNightHighTable,
    &e1_map::kTable,
    &e1_number::kTable,
    &did_redirect::kTable,
    &tbl_route::kPidTable,
    &tbl_route::kGatewayTable,
    &tbl_route::kTable,
    // Scripts, and sections with a session of their own
    &run_script::kTable,
    &mini_bar::kTable,
    &pbx_ip::kAddress,
    &pbx_ip::kMac,
};

}  // namespace

std::span<const Table* const> Tables() {
  return kTables;
}

}  // namespace tarvok::sections
