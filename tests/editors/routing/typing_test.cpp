// What the cells of the routing editors take from the keyboard.

#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

constexpr const char* kProject =
    "[Route_List]\nMax=50\n01=2\n[Route]\nMax=200\n001=01|0|0|F|F|F|F|1|1\n[Group_Out]\nMax=32\n01=001\n"
    "[E1Map]\n01=001|002|0\n[Incoming_List]\nMax=50\n"
    "[Route_Map_Digit]\n001=12|F|101|1|26\n002=F|F|F|F|255\n";

struct Typed {
  const char* what;
  const char* form;
  const char* script;
  const char* shown;  // of the current cell
};

class Typing : public testing::TestWithParam<Typed> {};

TEST_P(Typing, TakesWhatTheColumnTakes) {
  EditorBench bench(kProject);
  bench.Run(GetParam().form, GetParam().script);
  const TableEditor& table = *bench.editor->table();
  EXPECT_EQ(table.Cell(table.current_row(), table.current_column()), GetParam().shown);
}

constexpr const char* kMap = "frmRouteMap";
constexpr const char* kRoute = "frmRoute";
constexpr const char* kIncoming = "frmIncomingLst";
constexpr const char* kDid = "frmDIDRedirect";

INSTANTIATE_TEST_SUITE_P(
    Routing, Typing,
    testing::Values(
        Typed{"FirstKeyReplaces", kMap, "go 1 Digit\ntype p1", "P1"},
        Typed{"LaterSetHasNoP", kMap, "go 1 1\ntype 9pU:z", "9:Z"},
        Typed{"FirstSetHasNoColon", kMap, "go 1 1\ntype :z1", "Z1"},
        Typed{"AKeyNotTakenOpensEmptyAndKeepsTheCell", kMap, "go 1 1\ntype q", "12"},
        Typed{"EscapeBringsTheCellBack", kMap, "go 1 1\ntype 34\npress Escape", "12"},
        Typed{"BackspaceOnTheCell", kMap, "go 1 1\npress Backspace", "1"},
        Typed{"NineteenCharacters", kMap, "go 1 1\ntype 123456789012345678901", "1234567890123456789"},
        Typed{"ReleaseTakesOneFlag", kMap, "go 1 4\ntype 201", "0"},
        Typed{"TimeoutUpTo254", kMap, "go 1 Timeout\ntype 255", "25"},
        Typed{"TimeoutBehind25", kMap, "go 1 Timeout\ntype 2549", "254"},
        Typed{"TimeoutBehind26", kMap, "go 1 Timeout\ntype 260", "26"},
        Typed{"TimeoutHasNoFirstZero", kMap, "go 1 Timeout\ntype 0", "26"},
        Typed{"TimeoutListEntryIsOneThing", kMap, "go 2 Timeout\npress Backspace\ntype 7", "7"},
        Typed{"TimeoutListEntryIsTakenOffWhole", kMap, "go 2 5\npress Backspace\npress Backspace", ""},
        Typed{"DeleteClearsAList", kMap, "go 1 \"Route List\"\npress Delete", ""},
        Typed{"HourUpTo23", kRoute, "go 1 6\ntype 24", "2"},
        Typed{"MinuteUpTo59", kRoute, "go 1 6\ntype 23659", "2359"},
        Typed{"TimeBeginsWithTwoAtMost", kRoute, "go 1 7\ntype 3", ""},
        Typed{"BehindPADigit", kRoute, "go 2 8\ntype pX5x", "P5X"},
        Typed{"NOnlyInTypeSave", kRoute, "go 2 8\ntype 1n2", "12"},
        Typed{"NInTypeSave", kRoute, "go 2 9\ntype 1n2", "1N2"},
        Typed{"RouteTextGoesOnBehindTheCell", kRoute, "go 1 8\ntype 2", "12"},
        Typed{"TimeOut254", kIncoming, "go 1 5\ntype 02554", "254"},
        Typed{"NamesHaveNoPipes", kIncoming, "go 1 1\ntype  a|b c", "ab c"},
        Typed{"DidFourDigits", kDid, "go 1 2\ntype 99*999", "9999"},
        Typed{"NumberingTakesSymbols", "frmE1Numbering", "go 1 2\ntype 1*a#", "1*#"},
        Typed{"DigitCheckTakesDigits", "frmE1Numbering", "go 1 3\ntype *123", "12"},
        Typed{"ClassesTakeDigitsOfAnyLength", "frmClassDigit", "go 1 1\ntype 9*a#1234567890123456789012345",
              "9*#1234567890123456789012345"}),
    [](const testing::TestParamInfo<Typed>& typed) { return std::string(typed.param.what); });

}  // namespace
}  // namespace tarvok::test
