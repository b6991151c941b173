#include "sections/ports/port_def.h"

#include <string>

#include "sections/ports/assign.h"
#include "sections/ports/boss.h"
#include "sections/ports/port_config.h"
#include "sections/routing/incoming_list.h"
#include "sections/routing/tenan.h"
#include "sections/rows.h"

namespace tarvok::sections {
namespace port_def {
namespace {

constexpr Choice kPersonalMsgChoices[] = {{"0", "No"}, {"1", "Immediately"}, {"2", "4 Rings"}};
constexpr Choice kDndChoices[] = {{"1", "DND"}};
constexpr Choice kVmUseChoices[] = {{"1", "Use"}, {"2", "Auto Record"}, {"3", "Use & Auto Record"}};
constexpr Choice kUseChoices[] = {{"1", "USE"}};

constexpr Field kFields[] = {
    Number("Card", 1, 16),
    Number("Channel", 1, 60),
    OneOf("Type", kCardLabels),
    AnyRowOf("Config", port_config::kTable, 0),
    AnyRowOf("Tenan", tenan::kDayTable, 0),
    Number("Pickup Group", 1, 99).UnsetAs("0"),
    RowOf("Incoming D", incoming_list::kTable, 3),
    RowOf("Incoming N", incoming_list::kTable, 3),
    OneOf("DND", kDndChoices).UnsetAs("0"),
    Digits("Disa", 12),
    Digits("Co", 12),
    Digits("Ext", 12),
    Digits("Busy", 12),
    Digits("NoAns", 12),
    Number("Ring T.", 0, 254),
    RowOf("Number", assign::kTable, 3),
    Digits("PSW", 4).Secret(),
    Number("Group", 1, 254).UnsetAs("0"),
    Number("Language", 1, 255),
    OneOf("Personal Msg", kPersonalMsgChoices),
    OneOf("Call Screen", kUseChoices).UnsetAs("0"),
    OneOf("VM Use", kVmUseChoices).UnsetAs("0"),
    OneOf("Expand T", kUseChoices),
};

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

}  // namespace

const Table kTable = {.section = "Port_Def",
                      .row_name = "Port",
                      .command = "portdefine",
                      .edited_elsewhere = kEditedElsewhere,
                      .rows = {1, kPortRows, 3},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .marks = kMarks,
                      .needs = kPlace,
                      .unique = kUnique,
                      .now = NowCounts::kRows};

namespace {

constexpr int kRecord = 55;
constexpr int kDigitBytes = 6;
constexpr int kPasswordBytes = 2;
constexpr int kForwards = 5;  // Disa to NoAns
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

int VmUseByte(std::string_view use) {
  if (use == "1") return 1;
  if (use == "2") return 16;
  if (use == "3") return 17;
  return 0;
}

void EncodePort(RecordWriter& port, int boss_row) {
  std::int64_t flags = port.Value(kDnd);
  for (int i = 0; i < kForwards; ++i) flags += port.IsSet(kDisa + i) ? 2 << i : 0;
  // If the port uses voice mail, unset values in bytes 48 to 51 are sent as 0, otherwise as 255.
  const int vm_default = port.Value(kVmUse) > 0 ? 0 : 255;

  port.MinusOne(0, kCard);
  port.MinusOne(1, kChannel);
  port.Plain(2, kType, 0);
  port.Fill(3, 2, 255);
  port.MinusOne(5, kConfig);
  port.MinusOne(6, kTenan);
  port.MinusOne(7, kPickupGroup);
  port.MinusOne(8, kIncomingDay);
  port.MinusOne(9, kIncomingNight);
  port.MinusOneWord(10, kNumber);
  port.Checked(12, kDnd, flags);
  port.Byte(13, 0);
  port.Plain(14, kRingTime, 255);
  for (int i = 0; i < kForwards; ++i) port.Digits(15 + i * kDigitBytes, kDigitBytes, kDisa + i);
  port.Byte(45, 0);
  port.Digits(46, kPasswordBytes, kPassword);
  port.Plain(48, kGroup, vm_default);
  if (port.Value(kGroup) == 0) port.Byte(48, vm_default);
  port.MinusOne(49, kLanguage, vm_default);
  port.Plain(50, kPersonalMsg, vm_default);
  port.Plain(51, kCallScreen, vm_default);
  port.Byte(52, VmUseByte(port.Get(kVmUse)));
  port.Byte(53, port.Get(kExpand) == "1" ? 1 : 0);
  port.Byte(54, boss_row);
}

std::string VmUseText(int byte) {
  switch (byte) {
    case 255:
      return std::string(kUnset);
    case 17:
      return "3";
    case 16:
      return "2";
    default:
      return std::to_string(byte);
  }
}

void DecodePort(const ImageReader& port, RowText& row) {
  // A high byte of 255 makes the whole word 65,535, which sets all flags.
  const int flags = port.Word(12);
  row.Add(port.PlusOne(0));
  row.Add(port.PlusOne(1));
  row.Add(port.Byte(2) == 0 ? std::string(kUnset) : port.Plain(2));
  row.Add(port.PlusOne(5));
  row.Add(port.PlusOne(6));
  row.Add(port.PlusOne(7));
  row.Add(port.PlusOne(8, 3));
  row.Add(port.PlusOne(9, 3));
  row.Add((flags & 1) != 0 ? "1" : "0");
  for (int i = 0; i < kForwards; ++i) {
    const bool present = (flags & (2 << i)) != 0;
    row.Add(present ? port.Digits(15 + i * kDigitBytes, kDigitBytes) : std::string(kUnset));
  }
  row.Add(port.Plain(14));
  row.Add(port.PlusOneWord(10, 3));
  row.Add(port.Digits(46, kPasswordBytes));
  row.Add(port.Plain(48));
  row.Add(port.PlusOne(49));
  row.Add(port.Plain(50));
  row.Add(port.Plain(51));
  row.Add(VmUseText(port.Byte(52)));
  row.Add(port.Byte(53) == 1 ? "1" : kUnset);
}

}  // namespace

}  // namespace port_def

void EncodePortDef(const IniText& project, ImageWriter& image) {
  using namespace port_def;
  const auto bosses = ReadBosses(project);
  EncodeRows(project, kTable, image, {kRecord, 0, kRecord},
             [&](RecordWriter& port) { EncodePort(port, BossRowOf(port.key(), bosses)); });
}

void DecodePortDef(const ImageReader& image, IniEdit& project) {
  using namespace port_def;
  constexpr std::string_view kNoPlaceOrType = "F|F|F";
  StoreRowCounts(project, kTable, kPortRows);
  RowText row;
  for (int number = 1; number <= kPortRows; ++number) {
    DecodePort(image.Record(number - 1, kRecord), row.Clear());
    if (row.str().starts_with(kNoPlaceOrType)) {
      project.DeleteKey(kTable.section, KeyOf(kTable, number));
    } else {
      project.Set(kTable.section, KeyOf(kTable, number), row.str());
    }
  }
}

}  // namespace tarvok::sections
