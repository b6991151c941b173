#include "sections/registry.h"

#include <algorithm>

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

/** A number that exchanges know, but that has no bytes. */
constexpr Section NameOnly(int number, std::string_view name) {
  return {.number = number, .name = name, .send_from = kNever, .load_from = kNever};
}
constexpr Section kHead = NameOnly(0, "Head config");
constexpr Section kFeature = NameOnly(22, "Feature");
constexpr Section kOrderPrint = NameOnly(23, "Order Print");

/** All sections. Their tables are listed in this order, whatever the sections' numbers. */
constexpr const Section* kSections[] = {
    &kHead,
    &kPabxModeSection,
    &kDayTimeSection,
    &kNightTimeSection,
    &kWeekendSection,
    &kVoiceMailSection,
    &kRecordNumberSection,
    &kMusicSourceSection,
    &kBillingModeSection,
    &kPortDefSection,
    &kPortConfigSection,
    &kPortConfig2Section,
    &kAssignSection,
    &kNameSection,
    &kHuntGroupSection,
    &kAccountSection,
    &kKeyDssSection,
    &kBossSection,
    &kLinkTrunkSection,
    &kDialPhoneSection,
    &kVmCallBackSection,
    &kRouteMapSection,
    &kRouteTimeLimitSection,
    &kRouteListSection,
    &kRouteSection,
    &kGroupOutSection,
    &kClassBanSection,
    &kClassAllowSection,
    &kClassGroupSection,
    &kIncomingListSection,
    &kTenanSection,
    &kE1MapSection,
    &kE1NumberSection,
    &kDidRedirectSection,
    &kTblRouteSection,
    &kRunScriptSection,
    &kMiniBarSection,
    &kPbxIpSection,
    &kFeature,
    &kOrderPrint,
};

constexpr bool HasNumber(const Section* section) {
  return section->number != kNoNumber;
}

/** The sections with a number, in its order. */
constexpr auto kByNumber = [] {
  std::array<const Section*, std::ranges::count_if(kSections, HasNumber)> sections{};
  std::ranges::copy_if(kSections, sections.begin(), HasNumber);
  std::ranges::sort(sections, {}, &Section::number);
  return sections;
}();

static_assert(std::ranges::adjacent_find(kByNumber, {}, &Section::number) == kByNumber.end(),
              "each number belongs to one section");
static_assert(kByNumber.back()->number == kBarEnd);

constexpr bool LayoutsAscend(const Section* section) {
  return std::ranges::adjacent_find(section->layouts, [](const WireLayout& layout, const WireLayout& next) {
           return next.size > 0 && (next.send_from <= layout.send_from || next.load_from <= layout.load_from);
         }) == std::end(section->layouts);
}
static_assert(std::ranges::all_of(kSections, LayoutsAscend));

}  // namespace

std::string Section::GetFailedText() const {
  // For the sections added by later versions the text lacks the last word.
  constexpr int kFirstLater = 33;
  const std::string shown(name_if_refused.empty() ? name : name_if_refused);
  return "Get " + shown + (number < kFirstLater ? " failed" : "");
}

const WireLayout* Section::LayoutAt(int version, Direction direction) const {
  const WireLayout* found = nullptr;
  for (const WireLayout& layout : layouts) {
    const int from = direction == Direction::kSend ? layout.send_from : layout.load_from;
    if (layout.size > 0 && from <= version) found = &layout;
  }
  return found;
}

std::vector<std::string> TooLongLists(const IniEdit& project) {
  std::vector<std::string> lines = project.TooLong();
  for (std::string& line : lines) line += ": what stands behind them is lost.";
  return lines;
}

std::span<const Section* const> Sections() {
  return kByNumber;
}

std::span<const Table* const> Tables() {
  // A table that several sections transfer is listed with the first of them.
  static const std::vector<const Table*> tables = [] {
    std::vector<const Table*> listed;
    for (const Section* section : kSections) {
      for (const Table* table : section->OwnTables()) {
        if (std::ranges::find(listed, table) == listed.end()) listed.push_back(table);
      }
    }
    return listed;
  }();
  return tables;
}

const Section* FindSection(int number) {
  const auto found = std::ranges::find(kByNumber, number, &Section::number);
  return found == kByNumber.end() ? nullptr : *found;
}

int SizeAt(int number, int version, Direction direction) {
  const Section* section = FindSection(number);
  const WireLayout* layout = section == nullptr ? nullptr : section->LayoutAt(version, direction);
  return layout == nullptr ? 0 : layout->size;
}

std::vector<const Section*> SendPlan(int version) {
  std::vector<const Section*> plan;
  for (const Section* section : kByNumber) {
    if (section->send_from <= version)
      plan.insert(plan.end(), static_cast<std::size_t>(section->times_sent), section);
  }
  return plan;
}

std::vector<const Section*> ReadPlan(int version) {
  std::vector<const Section*> plan;
  for (const Section* section : kByNumber) {
    if (section->load_from <= version) plan.push_back(section);
  }
  return plan;
}

}  // namespace tarvok::sections
