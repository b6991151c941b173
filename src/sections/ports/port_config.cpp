#include "sections/ports/port_config.h"

#include <string>

#include "sections/ports/number_tables.h"
#include "sections/records.h"
#include "sections/routing/class_group.h"

namespace tarvok::sections {
namespace port_config {
namespace {

constexpr Choice kOffOn[] = {{"0", "OFF"}, {"1", "ON"}};
constexpr Choice kCidChoices[] = {{"0", "OFF"}, {"1", "SDMF"}, {"2", "MDMF"}};
constexpr Choice kConnectChoices[] = {{"0", "No"}, {"1", "Yes"}, {"2", "10 PPS"}, {"3", "20 PPS"}};
constexpr Choice kMusicChoices[] = {
    {"0", "Internal"}, {"1", "External 1"}, {"2", "External 2"}, {"3", "VM only"}, {"4", "VM on CO"}};
constexpr Choice kOverrideChoices[] = {{"0", "None"}};
constexpr Choice kReverseChoices[] = {{"0", "No"}, {"1", "Use"}, {"2", "Destination"}, {"3", "Incoming"}};

/** 256 is an older spelling of 255. */
constexpr Choice kRingChoices[] = {{"8", "Default"}, {"255", "16 Rings Disc"}, {"256", "16 Rings Disc"}};

constexpr auto kFields = FieldsOf({
    {kServiceDay, RowOf("Class of Servrice Day", class_group::kTable, 2)},
    {kServiceNight, RowOf("Class of Servrice Night", class_group::kTable, 2)},
    {kTransferLine, OneOf("Transfer Line", kOffOn).UnsetAs("0")},
    {kCid, OneOf("CID", kCidChoices).UnsetAs("0")},
    {kConnect, OneOf("Connect", kConnectChoices).UnsetAs("0")},
    {kMusic, OneOf("Music", kMusicChoices).UnsetAs("0")},
    {kCoTimeout, Number("CO Timeout", 0, 255).UnsetAs("0")},
    {kCoTimeoutIncoming, Number("CO Timeout Incoming", 0, 255).UnsetAs("0")},
    {kOverride, Number("Override Executive", 0, 9).Named(kOverrideChoices).UnsetAs("0")},
    {kHotline, Digits("Hotline Oper", 12)},
    {kHook, Flag("Hook").UnsetAs("0")},
    {kLineReverse, OneOf("Line Reverse", kReverseChoices).UnsetAs("0")},
    {kFax, Flag("FAX").UnsetAs("0")},
    {kDoNotPrint, Flag("Do Not Print Extension").UnsetAs("0")},
    {kLinkTrunk, RowOf("Link Trunk Number", link_trunk::kTable, 0).UnsetAs("0")},
    {kWarning, Flag("Warning when call waiting").UnsetAs("0")},
    {kHangOnTimeout, Number("Hang On Timeout", 0, 255).UnsetAs("0")},
    {kHoldCut, RowOf("Hold Cut COR", class_group::kTable, 2).LoadedUnpadded()},
    {kRingTransfer, Number("Ring Transfer Timeout", 0, 16).Named(kRingChoices).UnsetAs("8")},
});
constexpr int kFewestLoadedFields = 16;  // below version 106, where there is no section 42

/** Profiles that hold only defaults, as written by the two loads and the editor. */
constexpr std::string_view kDefaultA = "F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0";
constexpr std::string_view kDefaultB = "F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0";
constexpr std::string_view kEmptyRows[] = {
    kDefaultA,
    kDefaultB,
    "F|F|F|F|0|0|0|0|0|F|0|0|0|0|0|0|0|F|F",
    "F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|0",
    "F|F|0|0|0|0|0|0|0|F|0|0|0|0|0|0|0|F|F",
};

constexpr int kRecord = 20;
constexpr int kHotlineBytesA = 3;
constexpr int kHotlineBytes2 = 6;

/** The part that both layouts of section 1 share. */
void EncodeCommon(RecordWriter& profile) {
  profile.Plain(0, kConnect, 0);
  profile.MinusOne(1, kServiceDay);
  profile.MinusOne(2, kServiceNight);
  profile.Plain(3, kTransferLine, 0);
  profile.Plain(4, kCid, 0);
  profile.Plain(5, kMusic, 0);
  profile.Plain(6, kCoTimeout, 0);
  profile.Plain(7, kCoTimeoutIncoming, 0);
  profile.Plain(8, kOverride, 0);
  for (int i = 0; i < 6; ++i) profile.Plain(12 + i, kHook + i, 0);  // Hook to Warning are in field order
}

void EncodeA(RecordWriter& profile) {
  EncodeCommon(profile);
  profile.Digits(9, kHotlineBytesA, kHotline);
}

void EncodeB(RecordWriter& profile) {
  EncodeCommon(profile);
  profile.Fill(9, kHotlineBytesA, 255);
  profile.Plain(18, kHangOnTimeout, 0);
}

void Encode2(RecordWriter& profile) {
  constexpr int kDefaultRings = 8;
  profile.Digits(0, kHotlineBytes2, kHotline);
  profile.MinusOne(6, kHoldCut);
  // "16 Rings Disc" is stored as 255, formerly as 256.
  if (profile.Get(kRingTransfer) == "256") {
    profile.Byte(7, 255);
  } else {
    profile.Plain(7, kRingTransfer, kDefaultRings);
  }
}

std::string ZeroForUnset(const ImageReader& profile, int at) {
  return std::to_string(profile.Byte(at) == 255 ? 0 : profile.Byte(at));
}

void DecodeProfile(const ImageReader& profile, bool layout_a, RowText& row) {
  row.Add(profile.PlusOne(1, 2)).Add(profile.PlusOne(2, 2));
  row.Add(ZeroForUnset(profile, 3)).Add(ZeroForUnset(profile, 4)).Add(ZeroForUnset(profile, 0));
  row.Add(ZeroForUnset(profile, 5));
  for (int at = 6; at <= 8; ++at) row.Add(std::to_string(profile.Byte(at)));  // here 255 is an ordinary value
  row.Add(layout_a ? profile.Digits(9, kHotlineBytesA) : std::string(kUnset));
  for (int at = 12; at <= 17; ++at) row.Add(ZeroForUnset(profile, at));
  if (!layout_a) row.Add(std::to_string(profile.Byte(18)));
}

void DecodeProfiles(const ImageReader& image, IniEdit& project, bool layout_a) {
  StoreRowCounts(project, kTable, kPortConfigRows);
  DecodeRows(
      image, project, kTable, kRecord,
      [&](const ImageReader& profile, RowText& row) { DecodeProfile(profile, layout_a, row); },
      [&](std::string_view row) { return row == (layout_a ? kDefaultA : kDefaultB); });
}

}  // namespace

const Table kTable = {.section = "PortConfig",
                      .row_name = "Profile",
                      .command = "portconfig",
                      .rows = {1, kPortConfigRows, 2},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .fewest_fields = kFewestLoadedFields,
                      .now = NowCounts::kRows};

}  // namespace port_config

void EncodePortConfigA(const IniText& project, ImageWriter& image) {
  using namespace port_config;
  EncodeRows(project, kTable, image, {kRecord, 1, 2}, EncodeA);
}

void EncodePortConfigB(const IniText& project, ImageWriter& image) {
  using namespace port_config;
  EncodeRows(project, kTable, image, {kRecord, 1, 2}, EncodeB);
}

void EncodePortConfig2(const IniText& project, ImageWriter& image) {
  using namespace port_config;
  EncodeRows(project, kTable, image, {kRecord, 6, 1}, Encode2);
}

void DecodePortConfigA(const ImageReader& image, IniEdit& project) {
  port_config::DecodeProfiles(image, project, true);
}

void DecodePortConfigB(const ImageReader& image, IniEdit& project) {
  port_config::DecodeProfiles(image, project, false);
}

void DecodePortConfig2(const ImageReader& image, IniEdit& project) {
  using namespace port_config;
  RowText row;
  for (int number = 1; number <= kPortConfigRows; ++number) {
    const ImageReader profile = image.Record(number - 1, kRecord);
    const std::string key = KeyOf(kTable, number);
    const std::string_view held = project.View(kTable.section, key);
    if (held.empty()) continue;
    const std::string hotline = profile.Digits(0, kHotlineBytes2);
    row.Clear().Add(hotline == kUnset ? std::string(held) : SetField(held, kHotline, hotline));
    row.Add(profile.PlusOne(6)).Add(std::to_string(profile.Byte(7)));
    project.Set(kTable.section, key, row.str());
  }
}

}  // namespace tarvok::sections
