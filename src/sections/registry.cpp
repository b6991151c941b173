#include "sections/registry.h"

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
#include "sections/system/pabx_mode.h"
#include "sections/system/pbx_ip.h"
#include "sections/system/run_script.h"
#include "sections/system/system_numbers.h"
#include "sections/system/system_times.h"

namespace tarvok::sections {
namespace {

constexpr int kAll = kLowestVersion;

/** A section with a single layout that is both sent and loaded from the same version on. */
constexpr Section One(int number, int size, int from, std::string_view name, std::string_view progress,
                      std::string_view send_failed, Encoder encode = nullptr, Decoder decode = nullptr) {
  Section section{number, name, progress, send_failed, from, from};
  section.layouts[0] = {size, 0, 0, encode, decode};
  return section;
}

constexpr Section WithLayouts(Section section, std::array<WireLayout, 3> layouts) {
  section.layouts = layouts;
  return section;
}

constexpr Section SentTwice(Section section) {
  section.times_sent = 2;
  return section;
}

constexpr Section WithoutBar(Section section) {
  section.moves_bar = false;
  return section;
}

/** A section that is left out of a full send, because it has a session of its own. */
constexpr Section SentAlone(Section section, int load_from) {
  section.send_from = kNever;
  section.load_from = load_from;
  return section;
}

constexpr Section NameOnly(int number, std::string_view name) {
  Section section;
  section.number = number;
  section.name = name;
  return section;
}

constexpr std::array kSections = {
    NameOnly(0, "Head config"),
    WithLayouts(One(1, 400, kAll, "Port Config", "Sending Port Config...", "Send Port Config failed (RE)"),
                {{{400, 0, 0, EncodePortConfigA, DecodePortConfigA},
                  {400, 106, 106, EncodePortConfigB, DecodePortConfigB}}}),
    One(2, 20, kAll, "PABX Mode", "Sending PABX Mode...", "Send PABX Mode failed (RE)", EncodePabxMode,
        DecodePabxMode),
    WithLayouts(One(3, 40, kAll, "Billing Mode", "Sending Billing Mode...", "Send Billing Mode failed (RE)"),
                {{{40, 0, 0, EncodeBilling1, DecodeBilling1},
                  {40, 106, 106, EncodeBilling2, DecodeBilling2},
                  {40, 107, 107, EncodeBilling3, DecodeBilling3}}}),
    One(4, 27500, kAll, "Port", "Sending Port...", "Send Port failed (RE)", EncodePortDef, DecodePortDef),
    One(5, 1064, kAll, "Class of Digit", "Sending Class Digit...", "Send Class Digit failed (RE)",
        EncodeClassBan, DecodeClassBan),
    One(6, 1064, kAll, "Class of Digit AL", "Sending Class of Digit Allow...",
        "Send Class of Digit Allow failed (RE)", EncodeClassAllow, DecodeClassAllow),
    One(7, 120, kAll, "Class of Service", "Sending Class of Service...", "Send Class of Service failed (RE)",
        EncodeClassGroup, DecodeClassGroup),
    // An exchange 1.01 accepts the short layout but answers with the long one, so a load changes at 101 and a
    // send at 102.
    WithLayouts(One(8, 4400, kAll, "Route Map Digit", "Sending Route Map Digit...",
                    "Send Route Map Digit failed (RE)"),
                {{{4400, 0, 0, EncodeRouteMapDigit22, DecodeRouteMapDigit22},
                  {4600, 102, 101, EncodeRouteMapDigit23, DecodeRouteMapDigit23}}}),
    One(9, 100, kAll, "Route List", "Sending Route List...", "Send Route List failed (RE)", EncodeRouteList,
        DecodeRouteList),
    One(10, 9800, kAll, "Route", "Sending Route...", "Send Route failed (RE)", EncodeRoute, DecodeRoute),
    One(11, 2112, kAll, "Group Out", "Sending Group Out...", "Send Group Out failed (RE)", EncodeGroupOut,
        DecodeGroupOut),
    WithLayouts(One(12, 64, kAll, "Tenan", "Sending Tenan...", "Send Tenan failed (RE)"),
                {{{64, 0, 0, EncodeTenan16, DecodeTenan16}, {256, 103, 103, EncodeTenan32, DecodeTenan32}}}),
    One(13, 4500, kAll, "Assign Number", "Sending Assign Number...", "Send Assign Number failed (RE)",
        EncodeAssign, DecodeAssign),
    One(14, 7500, kAll, "Assign Name", "Sending Assign Name...", "Send Assign Name failed (RE)", EncodeName,
        DecodeName),
    One(15, 1040, kAll, "Hunt", "Sending Hunt Group...", "Send Hunting Group failed (RE)", EncodeHuntGroup,
        DecodeHuntGroup),
    One(16, 350, kAll, "Incoming List", "Sending Incoming List...", "Send Incoming List failed (RE)",
        EncodeIncomingList, DecodeIncomingList),
    One(17, 5500, 101, "Account", "Sending Account...", "Send Account failed (RE)", EncodeAccount,
        DecodeAccount),
    One(18, 40, kAll, "Map E1", "Sending Map E1...", "Send Map E1 failed (RE)", EncodeE1Map, DecodeE1Map),
    One(19, 240, kAll, "DID Number", "Sending DID Number...", "Send DID Number failed (RE)", EncodeE1Number,
        DecodeE1Number),
    One(20, 2800, kAll, "DID", "Sending DID...", "Send DID failed (RE)", EncodeDIDRedirect,
        DecodeDIDRedirect),
    One(21, 3, kAll, "VM Number", "Sending VM Number...", "Sending VM Number failed (RE)", EncodeVMNumber,
        DecodeVMNumber),
    NameOnly(22, "Feature"),
    NameOnly(23, "Order Print"),
    One(24, 16, kAll, "Day Time", "Sending Day Time...", "Send Day Time failed (RE)", EncodeDayTime,
        DecodeDayTime),
    One(25, 16, kAll, "Night Time", "Sending Night Time...", "Send Night Time failed (RE)", EncodeNightTime,
        DecodeNightTime),
    One(26, 100, kAll, "Date Weekend", "Sending Weekend...", "Send Weekend failed (RE)", EncodeWeekend,
        DecodeWeekend),
    One(27, 11424, 107, "Key Data Config", "Sending Key Config...", "Send key config failed (RE)",
        EncodeKeyDss, DecodeKeyDss),
    One(33, 40, 101, "Run Script", "Sending Run Script...", "Send Run Script failed (RE)", EncodeRunScript,
        DecodeRunScript),
    SentAlone(One(37, 18, kAll, "PBX Link Table", "Sending PBX Link Table...", "Sending PBX Link Table (RE)",
                  EncodeTblRoute, DecodeTblRoute),
              101),
    One(38, 96, 102, "Key Dial Phone", "Sending Key Dial Phone...", "Send Key Dial Phone failed (RE)",
        EncodeDialPhone, DecodeDialPhone),
    One(39, 240, 102, "Link Trunk Number", "Sending Link Trunk Number...",
        "Send Key Link Trunk Number failed (RE)", EncodeLinkTrunk, DecodeLinkTrunk),
    One(40, 2, 104, "Card & Port VM", "Sending Card & Port VM...", "Send Card & Port VM Number failed (RE)",
        EncodeCardPortVM, DecodeCardPortVM),
    One(41, 80, 105, "VM Call Back", "Sending VM Call Back...", "Send VM Call Back failed (RE)",
        EncodeVMCallBack, DecodeVMCallBack),
    One(42, 400, 106, "Port Config 2", "Sending Port Config2...", "Send port config2 failed (RE)",
        EncodePortConfig2, DecodePortConfig2),
    SentTwice(One(43, 200, 107, "Time Limit or Route List", "Sending Time Limit of Route List...",
                  "Send Time Limit of Route List failed (RE)", EncodeRouteTimeLimit, DecodeRouteTimeLimit)),
    SentAlone(One(44, 6, kAll, {}, "Sending New PBX IP Address...", "Sending new PBX IP Address  (RE)",
                  EncodePbxIp),
              kNever),
    WithoutBar(One(45, 80, 108, "Boss and secretary", "Sending setup boss and secretary...",
                   "Send Setup Boss and Secretary Failed (RE)", EncodeBoss, DecodeBoss)),
    One(46, 3, 109, "Record Number", "Sending Record Number...", "Sending Record Number failed (RE)",
        EncodeRecordNumber, DecodeRecordNumber),
};

}  // namespace

std::string Section::GetFailedText() const {
  // For the sections added by later versions the text lacks the last word.
  constexpr int kFirstLater = 33;
  const std::string shown(number == 1 ? "port config" : name);
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

std::vector<std::string> WhatIsCut(const IniEdit& project) {
  std::vector<std::string> lines = project.TooLong();
  for (std::string& line : lines) line += ": what stands behind them is lost.";
  return lines;
}

std::span<const Section> Sections() {
  return kSections;
}

const Section* FindSection(int number) {
  for (const Section& section : kSections) {
    if (section.number == number) return &section;
  }
  return nullptr;
}

int SizeAt(int number, int version, Direction direction) {
  const Section* section = FindSection(number);
  const WireLayout* layout = section == nullptr ? nullptr : section->LayoutAt(version, direction);
  return layout == nullptr ? 0 : layout->size;
}

std::vector<const Section*> SendPlan(int version) {
  std::vector<const Section*> plan;
  for (const Section& section : kSections) {
    if (section.send_from <= version)
      plan.insert(plan.end(), static_cast<std::size_t>(section.times_sent), &section);
  }
  return plan;
}

std::vector<const Section*> ReadPlan(int version) {
  std::vector<const Section*> plan;
  for (const Section& section : kSections) {
    if (section.load_from <= version) plan.push_back(&section);
  }
  return plan;
}

}  // namespace tarvok::sections
