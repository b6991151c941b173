#include "sections/ports/hunt_group.h"

#include "sections/member_pool.h"
#include "sections/ports/assign.h"
#include "sections/records.h"

namespace tarvok::sections {
namespace hunt_group {
namespace {

constexpr Field kFields[] = {RowOf("Member", assign::kTable, 3)};

}  // namespace

const Table kTable = {.section = "HuntGroup",
                      .row_name = "Hunt Group",
                      .command = "groupofhunt",
                      .rows = {1, kHuntGroups, 2},
                      .fields = kFields,
                      .repeats = true,
                      .members = {.pool = kHuntMembers},
                      .now = NowCounts::kMembers};

}  // namespace hunt_group

void EncodeHuntGroup(const IniText& project, ImageWriter& image) {
  EncodePool(project, hunt_group::kTable, image);
}

void DecodeHuntGroup(const ImageReader& image, IniEdit& project) {
  using namespace hunt_group;
  StoreRowCounts(project, kTable, LastEnd(image, kTable));
  DecodePool(image, project, kTable);
}

}  // namespace tarvok::sections
