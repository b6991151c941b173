// Every editor shows the place that a finding, a reference or a search hit names.

#include "tests/editors/editor_bench.h"

namespace tarvok::test {
namespace {

struct Named {
  const char* form;
  const char* section;
  int row;
  int field;
  const char* control;  // a list, a tab or a scroll bar; nullptr: the current cell of the table
  const char* shown;    // nullptr: the editor does not show the place
};

constexpr Named kNamed[] = {
    {"frmExtension", "Assign", 1, 2, nullptr, "1,2"},
    {"frmExtension", "Name", 187, 0, nullptr, "187,5"},
    {"frmPortSys_Def", "Port_Def", 1, 0, nullptr, "1,1"},
    {"frmPortSys_Def", "Port_Def", 230, 5, nullptr, "230,5"},
    {"frmPortConfig_Def", "PortConfig", 1, 3, "lsPortConfig", "1"},
    {"frmPortConfig_Def", "PortConfig", 20, 3, "lsPortConfig", "20"},
    {"frmPortConfig_Def", "PortConfig", 21, 3, "lsPortConfig", nullptr},
    {"frmDialPhone", "DialPhone", 1, 1, nullptr, "1,1"},
    {"frmCallFW", "Port_Def", 230, 10, nullptr, "230,5"},
    {"frmVMBox", "Port_Def", 1, 18, nullptr, "1,5"},
    {"frmAccount", "Account", 7, 5, nullptr, "7,5"},
    {"frmGrpHunt", "HuntGroup", 1, 3, "lsGroupHunt(0)", "503 - Reception 3"},
    {"frmGrpHunt", "HuntGroup", 20, 0, "lsGroup", "Hunt Group 20"},
    {"frmGrpHunt", "HuntGroup", 0, 1, "lsGroup", nullptr},
    {"frmSetupKey", "Key", 1, 1, "lsGrp", "1"},
    {"frmSetupKey", "DSS", 24, 1, "lsGrp", "24"},
    {"frmRoute", "Route_List", 50, 1, "lsRoute", "List 50"},
    {"frmRoute", "Route", 1, 1, "lsRoute", "List 1"},
    {"frmRoute", "Route", 5, 7, nullptr, "2,7"},
    {"frmGroupOut", "Group_Out", 1, 24, "ListView2", "1/24"},
    {"frmGroupOut", "Group_Out", 32, 1, "lsGroup", "Group Out 32"},
    {"frmClassDigit", "COR", 1, 3, nullptr, "3,1"},
    {"frmClassDigit", "COR", 20, 1, "lsCOR", "COR 20"},
    {"frmCORGroup", "COR_Group", 15, 1, "lsCORGroup", "COR Group 15"},
    {"frmTenan", "Tenan", 101, 1, "VScroll1", "0"},
    {"frmTenan", "Tenan", 432, 17, "HScroll1", "16"},
    {"frmSystemConfig", "SystemConfig", 1, 1, "ListView1", "01/01"},
    {"frmSetRoute", "TblRoute", 16, 2, nullptr, "16,2"},
};

TEST(ShowPlace, FirstAndLastRowOfEveryEditor) {
  for (const Named& named : kNamed) {
    SCOPED_TRACE(std::string(named.form) + " " + named.section + " " + std::to_string(named.row));
    EditorBench bench;
    bench.files.Put(EditorBench::kProject, SourceFile("/examples/hotel.tvk"));
    bench.Open(named.form);
    EXPECT_EQ(bench.editor->ShowPlace(named.section, named.row, named.field), named.shown != nullptr);
    if (named.shown == nullptr) continue;
    if (named.control != nullptr) {
      EXPECT_THAT(bench.Go(std::string("value ") + named.control + "\n"), ElementsAre(named.shown));
    } else {
      const TableEditor& table = *bench.editor->table();
      EXPECT_EQ(std::to_string(table.current_row()) + "," + std::to_string(table.current_column()),
                named.shown);
    }
    EXPECT_FALSE(bench.state.data_changed) << "looking changes nothing";
  }
}

}  // namespace
}  // namespace tarvok::test
