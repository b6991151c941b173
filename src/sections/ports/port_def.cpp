#include "sections/ports/port_def.h"

#include <string>

#include "sections/ports/assign.h"
#include "sections/ports/boss.h"
#include "sections/ports/port_config.h"
#include "sections/record_layout.h"
#include "sections/routing/incoming_list.h"
#include "sections/routing/tenan.h"

namespace tarvok::sections {
namespace port_def {
namespace {

constexpr Choice kPersonalMsgChoices[] = {{"0", "No"}, {"1", "Immediately"}, {"2", "4 Rings"}};
constexpr Choice kDndChoices[] = {{"1", "DND"}};
constexpr Choice kVmUseChoices[] = {{"1", "Use"}, {"2", "Auto Record"}, {"3", "Use & Auto Record"}};
constexpr Choice kUseChoices[] = {{"1", "USE"}};

constexpr auto kFields = FieldsOf({
    {kCard, Number("Card", 1, 16)},
    {kChannel, Number("Channel", 1, 60)},
    {kType, OneOf("Type", kCardLabels)},
    {kConfig, AnyRowOf("Config", port_config::kTable, 0)},
    {kTenan, AnyRowOf("Tenan", tenan::kDayTable, 0)},
    {kPickupGroup, Number("Pickup Group", 1, 99).UnsetAs("0")},
    {kIncomingDay, RowOf("Incoming D", incoming_list::kTable, 3)},
    {kIncomingNight, RowOf("Incoming N", incoming_list::kTable, 3)},
    {kDnd, OneOf("DND", kDndChoices).UnsetAs("0")},
    {kDisa, Digits("Disa", 12)},
    {kCo, Digits("Co", 12)},
    {kExt, Digits("Ext", 12)},
    {kBusy, Digits("Busy", 12)},
    {kNoAns, Digits("NoAns", 12)},
    {kRingTime, Number("Ring T.", 0, 254)},
    {kNumber, RowOf("Number", assign::kTable, 3)},
    {kPassword, Digits("PSW", 4).Secret()},
    {kGroup, Number("Group", 1, 254).UnsetAs("0")},
    {kLanguage, Number("Language", 1, 255)},
    {kPersonalMsg, OneOf("Personal Msg", kPersonalMsgChoices)},
    {kCallScreen, OneOf("Call Screen", kUseChoices).UnsetAs("0")},
    {kVmUse, OneOf("VM Use", kVmUseChoices).UnsetAs("0")},
    {kExpand, OneOf("Expand T", kUseChoices)},
});

/** Unused rows, as left by the editor and by a load. */
constexpr std::string_view kEmptyRows[] = {
    "F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F",
    "F|F|F|F|F|F|F|F|0|F|F|F|F|F|F|F|F|F|F|F|F|F|F",
};

constexpr EditedElsewhere kEditedElsewhere[] = {{kDnd, kRingTime, "callforward"}, {kGroup, kVmUse, "vmbox"}};
constexpr Mark kMarks[] = {{kCard, "card"}, {kChannel, "channel"}};
constexpr int kPlace[] = {kCard, kChannel};
constexpr int kNumberField[] = {kNumber};
constexpr Unique kUnique[] = {{kPlace, "card and channel"}, {kNumberField, "number"}};

constexpr int kBossAt = 54;
constexpr int kForwardsAt = 15;
constexpr int kForwards = 5;  // Disa to NoAns
constexpr int kForwardBytes = 6;
constexpr int kNoBoss = 255;

/** The boss of each `BOSS` row: the port index as written there, or "" for none. */
std::array<std::string, kBossRows> ReadBosses(const IniText& project) {
  std::array<std::string, kBossRows> bosses;
  for (int row = 1; row <= kBossRows; ++row) {
    const std::string_view boss =
        GetField(project.Get(boss::kTable.section, KeyOf(boss::kTable, row)), boss::kBoss);
    if (boss != kUnset) bosses[static_cast<std::size_t>(row) - 1] = boss;
  }
  return bosses;
}

int BossRowOf(std::string_view port, const std::array<std::string, kBossRows>& bosses) {
  for (int row = 1; row <= kBossRows; ++row) {
    if (bosses[static_cast<std::size_t>(row) - 1] == port) return row;
  }
  return kNoBoss;
}

/** Bit 0 is DND; the next bits say which forwards are set. */
void PutFlags(RecordWriter& port, int at, int field) {
  std::int64_t flags = port.Value(field);
  for (int i = 0; i < kForwards; ++i) flags += port.IsSet(kDisa + i) ? 2 << i : 0;
  port.Checked(at, field, flags);
}

/** True if a flag is set. A high byte of 255 makes the whole word 65,535, which sets all flags. */
bool HasFlag(const ImageReader& port, int bit) {
  constexpr int kFlagsAt = 12;
  return (port.Word(kFlagsAt) >> bit & 1) != 0;
}

void ReadDnd(const ImageReader& port, int /*at*/, RowText& row) {
  row.Add(HasFlag(port, 0) ? "1" : "0");
}

void ReadForward(const ImageReader& port, int at, RowText& row) {
  const bool present = HasFlag(port, 1 + (at - kForwardsAt) / kForwardBytes);
  row.Add(present ? port.Digits(at, kForwardBytes) : std::string(kUnset));
}

void PutType(RecordWriter& port, int at, int field) {
  port.Plain(at, field, 0);
}

void ReadType(const ImageReader& port, int at, RowText& row) {
  row.Add(port.Byte(at) == 0 ? std::string(kUnset) : port.Plain(at));
}

/** What a voice mail field that is not set is sent as: 0 if the port uses voice mail, otherwise 255. */
int VmDefault(const RecordWriter& port) {
  return port.Value(kVmUse) > 0 ? 0 : kUnsetByte;
}

void PutGroup(RecordWriter& port, int at, int field) {
  if (port.Value(field) == 0) {
    port.Byte(at, VmDefault(port));
  } else {
    port.Plain(at, field, 0);
  }
}

void PutLanguage(RecordWriter& port, int at, int field) {
  port.MinusOne(at, field, VmDefault(port));
}

void PutVmByte(RecordWriter& port, int at, int field) {
  port.Plain(at, field, port.IsSet(field) ? 0 : VmDefault(port));
}

/** Bit 0 is Use, bit 4 is Auto Record. */
void PutVmUse(RecordWriter& port, int at, int field) {
  const std::string_view use = port.Get(field);
  port.Byte(at, use == "1" ? 1 : use == "2" ? 16 : use == "3" ? 17 : 0);
}

void ReadVmUse(const ImageReader& port, int at, RowText& row) {
  const int byte = port.Byte(at);
  row.Add(byte == 17 ? "3" : byte == 16 ? "2" : port.Plain(at));
}

void PutExpand(RecordWriter& port, int at, int field) {
  port.Byte(at, port.Get(field) == "1" ? 1 : 0);
}

void ReadExpand(const ImageReader& port, int at, RowText& row) {
  row.Add(port.Byte(at) == 1 ? "1" : kUnset);
}

constexpr Rule kForward = kPacked<kForwardBytes>.ReadBy(ReadForward);

constexpr RecordLayout kRecord({
    {0, kCard, kMinusOne<>},
    {1, kChannel, kMinusOne<>},
    {2, kType, kByte.PutBy(PutType).ReadBy(ReadType)},
    {3, 0, kUnused255<2>},
    {5, kConfig, kMinusOne<>},
    {6, kTenan, kMinusOne<>},
    {7, kPickupGroup, kMinusOne<>},
    {8, kIncomingDay, kMinusOne<3>},
    {9, kIncomingNight, kMinusOne<3>},
    {10, kNumber, kMinusOneWord<3>},
    {12, kDnd, {1, PutFlags, ReadDnd, "and flags"}},
    {14, kRingTime, kByte},
    {kForwardsAt, kDisa, kForward},
    {kForwardsAt + kForwardBytes, kCo, kForward},
    {kForwardsAt + 2 * kForwardBytes, kExt, kForward},
    {kForwardsAt + 3 * kForwardBytes, kBusy, kForward},
    {kForwardsAt + 4 * kForwardBytes, kNoAns, kForward},
    {46, kPassword, kPacked<2>},
    {48, kGroup, kByte.PutBy(PutGroup)},
    {49, kLanguage, kMinusOne<>.PutBy(PutLanguage)},
    {50, kPersonalMsg, kByte.PutBy(PutVmByte)},
    {51, kCallScreen, kByte.PutBy(PutVmByte)},
    {52, kVmUse, {1, PutVmUse, ReadVmUse, "bits 0 and 4"}},
    {53, kExpand, {1, PutExpand, ReadExpand}},
    {kBossAt, 0, {1, nullptr, nullptr, "boss row, 1 to 20"}},
});

}  // namespace

const Table kTable = {.section = "Port_Def",
                      .row_name = "Port",
                      .command = "portdefine",
                      .edited_elsewhere = kEditedElsewhere,
                      .rows = {1, kPortRows, 3},
                      .fields = kFields,
                      .record = kRecord.items(),
                      .empty_rows = kEmptyRows,
                      .marks = kMarks,
                      .needs = kPlace,
                      .unique = kUnique,
                      .now = NowCounts::kRows};

}  // namespace port_def

void EncodePortDef(const IniText& project, ImageWriter& image) {
  using namespace port_def;
  const auto bosses = ReadBosses(project);
  EncodeRows(project, kTable, image, kRecord.AllUnset(), [&](RecordWriter& port) {
    kRecord(port);
    port.Byte(kBossAt, BossRowOf(port.key(), bosses));
  });
}

void DecodePortDef(const ImageReader& image, IniEdit& project) {
  using namespace port_def;
  StoreRowCounts(project, kTable, kPortRows);
  const auto decode = [](const ImageReader& port, RowText& row) {
    const int type = port.Byte(2);
    const bool no_place_or_type =
        port.Byte(0) == kUnsetByte && port.Byte(1) == kUnsetByte && (type == 0 || type == kUnsetByte);
    if (!no_place_or_type) kRecord(port, row);
  };
  DecodeRows(image, project, kTable, kRecord.size(), decode, BlankUnused);
}

}  // namespace tarvok::sections
