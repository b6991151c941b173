#include "sections/routing/group_out.h"

#include <string>

#include "sections/member_pool.h"
#include "sections/ports/port_def.h"
#include "sections/records.h"

namespace tarvok::sections {
namespace group_out {
namespace {

/** The card types with outside lines: TRUNK, E & M and E1. */
constexpr std::string_view kLineTypes[] = {"2", "5", "6", "9", "10", "11"};
constexpr Field kFields[] = {RowOf("Member", port_def::kTable, 3).Only({port_def::kType, kLineTypes})};
constexpr std::string_view kMaxMembersKey = "Max_Group_Out";
constexpr std::string_view kCounts[] = {kMaxKey, kMaxMembersKey, kNowKey};
constexpr Unique kUnique[] = {{{}, "port"}};

}  // namespace

const Table kTable = {.section = "Group_Out",
                      .row_name = "Group Out",
                      .command = "groupout",
                      .rows = {1, kGroupsOut, 2},
                      .fields = kFields,
                      .repeats = true,
                      .members = {.pool = kGroupOutMembers},
                      .label = "Group Out",
                      .unique = kUnique,
                      .now = NowCounts::kMembers,
                      .counts = kCounts};

}  // namespace group_out

void EncodeGroupOut(const IniText& project, ImageWriter& image) {
  EncodePool(project, group_out::kTable, image);
}

void DecodeGroupOut(const ImageReader& image, IniEdit& project) {
  using namespace group_out;
  const int total = LastEnd(image, kTable);
  const bool no_groups = total == kUnsetWord;
  StoreMax(project, kTable);
  project.Set(kTable.section, kMaxMembersKey, std::to_string(kGroupOutMembers));
  project.Set(kTable.section, kNowKey, std::to_string(no_groups ? 0 : total));
  DecodePool(no_groups ? ImageReader({}) : image, project, kTable);
}

}  // namespace tarvok::sections
