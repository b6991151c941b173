#include "editors/system/system_config_editor.h"
#include "store/number_text.h"
#include "tests/editors/editor_bench.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

constexpr const char* kCountries =
    "[Country]\nCnt=4\n001=Here\n002=\n003=There\n004=Nowhere\n[001]\nUNIT=Pound\nCnt=2\n001=020 A\n"
    "002=030 B\n[003]\nUNIT=Yen\nCnt=1\n001=06 C\n[004]\nUNIT=Franc\nCnt=\n";
constexpr const char* kBilling =
    "[SystemConfig]\nCCode=001\n"
    "Billing=02|1|0|1|0|1.50|0.00|2.25|3|4|5|0.10|0.20|6|0.30|7|8|9|10|11|12|13|1|4.75|0\n";

EditorBench BillingBench(std::string_view project = kBilling, std::string system = kCountries) {
  EditorBench bench(project);
  bench.files.Put(EditorBench::kSystemFile, std::move(system));
  return bench;
}

TEST(SystemEditors, RunScript) {
  ExpectEdit("frmRunScript", "[RunScript]\nData=1|F|3|F|F|F|F|\n",
             "focus txtRunScript(1)\ntype 5x11\nfocus txtRunScript(2)\npress Backspace\n"
             "focus txtRunScript(6)\ntype 510\nfocus txtRunScript(5)\ntype 509\nclick cmdOK\n",
             "", "[RunScript]\nData=1|510|F|F|F|509|510|\n");
  ExpectEdit("frmRunScript", "[RunScript]\nData=1|F|F|F|F|F|F|\n",
             "focus txtRunScript(0)\npress Backspace\nclick cmdOK\n", "", "[RunScript]\nData=\n");
}

TEST(SystemEditors, AddressBoxesMoveOnAndEnforceLimits) {
  ExpectEdit("frmSetIP", "[IP]\nIP=1|2|3|4|\nMAC=a|F|\n",
             "focus txtIP_Port(0)\ntype 192.168.x1.255\npress Return\ntype fFf\npress Return\ntype g0\nclick "
             "cmdOK\n",
             "", "[IP]\nIP=192|168|1|254|\nMAC=FE|0|\n");
  ExpectEdit("frmSetIP", "[IP]\nIP=1|168|1|254|\nMAC=F|0|\n",
             "focus txtIP_Port(0)\npress Backspace\nfocus txtRunScript(0)\npress Backspace\nclick cmdOK\n",
             "", "[IP]\nIP=0|168|1|254|\nMAC=0|0|\n");
}

TEST(SystemEditors, MiniBarRowsEndWithAPipe) {
  ExpectEdit("frmMiniBar", "[MiniBar]\n001=Cola|120\n002=Water|F|\n003=F|7|\n",
             "go 2 Price\ntype 9x9999\ngo 512 Name\ntype A twenty letter | name\ngo 3 Price\npress "
             "Backspace\nclick cmdOK\n",
             "", "[MiniBar]\n001=Cola|120|\n002=Water|9999|\n-003\n512=A twenty letter |F|\n");
}

TEST(SystemEditors, PabxModeFieldsMatchTheirBoxes) {
  const std::string numbers =
      "[Assign]\n001=200|0|011|1|F\n002=300|1|1|1|F\n003=201|0|012|1|F\n[SystemConfig]\nPbx=";
  ExpectEdit("frmPABXMode", numbers + "1|0|1|0|0|0|1|0|1|30|0|1|0|1|0|0|012|1|0|1\n",
             "value Check1(1)\nvalue Check1(10)\nvalue Check1(14)\nvalue Option1(1)\nvalue Option1(3)\n"
             "value cmbNum\nvalue cmbRevision\nlist cmbNum\n"
             "set Check1(3) 0\nset Option1(0) 1\nfocus txtT2T\npress Backspace\npress Backspace\ntype 0300\n"
             "focus cmbNum\npick 200\nset Check1(15) 1\nfocus cmbRevision\npick Revision 1\nclick cmdOK\n",
             "1\n1\n1\n1\n1\n201\nRevision 2\n200\n201",
             // The manual mode is hidden while its switch is off, so clicks on it do nothing.
             "[SystemConfig]\nPbx=1|0|0|0|0|0|1|0|1|254|0|1|0|1|0|0|011|1|1|0\n");
  ExpectEdit("frmPABXMode", numbers + "1|0|0|0|0|0|1|0|1|254|0|1|0|1|0|0|011|1|1|0\n",
             "set Option1(2) 1\nset Check1(12) 0\nset Option1(3) 1\nset txtT2T \"\"\nclick cmdOK\n", "",
             "[SystemConfig]\nPbx=1|0|0|0|0|0|1|0|1|F|0|1|0|0|0|1|011|1|1|0\n");
  // A number without a port: the fields after it stay in place.
  ExpectEdit("frmPABXMode",
             "[Assign]\n001=200|0\n[SystemConfig]\nPbx=1|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|F|0|0|0\n",
             "focus cmbNum\npick 200\nclick cmdOK\n", "",
             "[SystemConfig]\nPbx=1|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|F|0|0|0\n");
}

TEST(SystemEditors, BillingListsFollowTheCountry) {
  EditorBench bench = BillingBench();
  EXPECT_THAT(
      bench.Run("frmBillingMode",
                "list cmbCountry\nvalue cmbLocalCode\nvalue lblUnit(9)\nfocus cmbCountry\npick There\n"
                "list cmbLocalCode\nvalue lblUnit(9)\n"),
      ElementsAre("Here", "There", "Nowhere", "030 B", "Pound", "06 C", "Yen"));
  bench.Go("click cmdOK\n");
  EXPECT_EQ(bench.Get("SystemConfig", "CCode"), "003");
  EXPECT_THAT(bench.Get("SystemConfig", "Billing"), StartsWith("0|1|0|1|0|1.50|"));  // no code is chosen yet
  EXPECT_THAT(bench.Run("frmBillingMode", "focus cmbCountry\npick Nowhere\nlist cmbLocalCode\nclick cmdOK\n"),
              ElementsAre("No data"));
  EXPECT_THAT(bench.Get("SystemConfig", "Billing"), StartsWith("F|1|"));
}

TEST(SystemEditors, BillingBoxesEnforceLimits) {
  EditorBench bench = BillingBench();
  bench.Run("frmBillingMode",
            "set Text1(16) 300\nset Text1(3) 254\nset Text1(4) \"\"\nset Text1(6) 700\nset Text1(7) 654.99\n"
            "focus Text1(9)\ntype .5.12x\nfocus Text1(8)\ntype .1\nfocus MaskEdNum(2)\npress Backspace\n"
            "press Backspace\npress Backspace\npress Backspace\ntype 1234\nset MaskEdNum(3) 655.35\nset "
            "Check1(5) 1\nclick cmdOK\n");
  EXPECT_EQ(bench.Get("SystemConfig", "Billing"),
            "02|1|0|1|0|1.50|123|2.25|254|0|5|655|654.99|61|0.30|7|8|9|10|11|12|254|1|655.35|1");
}

TEST(SystemEditors, BillingRefusesValuesThatCannotBeSent) {
  EditorBench bench = BillingBench();
  const std::string before = bench.Bytes();
  EXPECT_THAT(
      bench.Run("frmBillingMode",
                "set MaskEdNum(2) 655.36\nclick cmdOK\nvalue MaskEdNum(2)\n"
                "set MaskEdNum(2) 1\nset Text1(7) .\nclick cmdOK\nvalue Text1(7)\n"),
      ElementsAre("box: Oversea Charge %: 655.36 is more than an exchange can hold; the maximum is 655.35.",
                  "655.36", "box: Intercom Rate: . is not an amount.", "."));
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_FALSE(bench.editor->closed());
  EXPECT_THAT(bench.Go("set Text1(7) .5\nclick cmdOK\n"), IsEmpty());
  EXPECT_THAT(bench.Get("SystemConfig", "Billing"), StartsWith("02|1|0|1|0|1.50|1|2.25|3|4|5|0.10|.5|6|"));
}

TEST(SystemEditors, BillingKeepsTheLocalCodeOfTheSameCountry) {
  // The stored code, what is chosen, and the saved code. The second country's list has one entry.
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"02", "pick There\npick Here\n", "0"},
      {"02", "pick Here\n", "02"},
      {"02", "pick Here\nfocus cmbLocalCode\npick 020 A\n", "01"},
      {"07", "pick Here\n", "0"}};  // beyond the end of the list
  for (const auto& [code, script, saved] : cases) {
    EditorBench bench =
        BillingBench(std::string("[SystemConfig]\nCCode=001\nBilling=") + code + "|1|0|1|0|0|0|0\n");
    bench.Run("frmBillingMode", std::string("focus cmbCountry\n") + script + "click cmdOK\n");
    EXPECT_THAT(bench.Get("SystemConfig", "Billing"), StartsWith(std::string(saved) + "|1|")) << script;
  }
}

TEST(SystemEditors, BillingWithInvalidCountriesAndSystemFiles) {
  std::string many = "[Country]\nCnt=999999\n";
  for (int n = 1; n <= 1200; ++n) many += Padded(n, 3) + "=C" + std::to_string(n) + "\n";
  // The country's code, the system file, and the number of offered countries. An unknown country becomes the
  // first one.
  const std::tuple<const char*, std::string, std::size_t> cases[] = {{"005", kCountries, 3},
                                                                     {"", kCountries, 3},
                                                                     {"x", kCountries, 3},
                                                                     {"-1", kCountries, 3},
                                                                     {"999", kCountries, 3},
                                                                     {"001", "", 0},
                                                                     {"001", "[Country]\nCnt=0\n", 0},
                                                                     {"001", "[Country]\nCnt=x\n", 0},
                                                                     {"001", many, 999}};
  for (const auto& [code, system, countries] : cases) {
    EditorBench bench =
        BillingBench(std::string("[SystemConfig]\nCCode=") + code + "\nBilling=F|F|x\n", system);
    EXPECT_EQ(bench.Run("frmBillingMode", "list cmbCountry\n").size(), countries);
    EXPECT_EQ(bench.Get("SystemConfig", "CCode"), "001") << code;
    EXPECT_FALSE(bench.state.data_changed);
    EXPECT_THAT(bench.Go("set Check1(0) 1\nclick cmdOK\n"), IsEmpty());
    bench.ExpectKeys("[SystemConfig]\nCCode=001\n");
    EXPECT_THAT(bench.Get("SystemConfig", "Billing"), StartsWith(countries == 3 ? "0|1|0|0|0|0|0|" : "F|1|"));
  }
}

TEST(SystemEditors, TimesOfTheWeek) {
  ExpectEdit("frmSystemConfig", "[SystemConfig]\nMon=0800|1730\nTue=2\nport=F\ncard=20\n",
             "set tbsTimeZone 1\nfocus txtDayTime\npress Backspace\npress Backspace\npress Backspace\n"
             "press Backspace\ntype 32460450\nset tbsTimeZone 2\nfocus txtNightTime\ntype 2\nfocus txtVM\n"
             "type 1203x4567\nfocus cmbPort\npick 60\nclick cmdOK\n",
             "",
             "[SystemConfig]\nSun=0000|0000\nMon=2045|1730\nTue=2|2\nVMNum=120345\nport=60\n"
             "card=20\n");  // not in the list, but kept
}

TEST(SystemEditors, OneTabIsAlwaysChosen) {
  for (const auto& [form, tabs] : {std::pair("frmSystemConfig", "tbsTimeZone"), {"frmTenan", "tbsTenan"}}) {
    EditorBench bench;
    const std::string name(tabs);
    EXPECT_THAT(bench.Run(form, "focus " + name + "\npick\nvalue " + name + "\n"), ElementsAre("0"));
  }
}

TEST(SystemEditors, Holidays) {
  ExpectEdit("frmSystemConfig", "[SystemConfig]\nW03=12|25|\nW05=1|6\nW07=18|F\n",
             "list ListView1\nfocus cmbMonth\npick 01\nfocus cmbDay\npick 06\nclick cmdHAdd\n"
             "click ListView1(0)\nvalue cmbDay\nfocus cmbDay\npick 26\nclick cmdHApply\nclick ListView1(2)\n"
             "answer No Yes\nclick cmdHRemove\nclick cmdHRemove\nclick cmdOK\n",
             "12/25\n01/06\n18/F\nbox: Day already in list\n25\nask: Do you want to remove '18/F' ? -> No\n"
             "ask: Do you want to remove '18/F' ? -> Yes",
             "[SystemConfig]\nW01=12|26\nW02=01|06\nW07=\nW50=\n");
}

TEST(SystemEditors, RefusesTheFiftyFirstHoliday) {
  std::string rows = "[SystemConfig]\n";
  for (int row = 1; row <= 50; ++row) rows += "W" + Padded(row, 2) + "=02|" + Padded(row, 2) + "\n";
  EditorBench bench(rows);
  EXPECT_THAT(bench.Run("frmSystemConfig", "click cmdHAdd\n"), ElementsAre("box: Over limit weekend"));
  auto& form = dynamic_cast<system_config_editor::SystemConfigEditor&>(*bench.editor);
  form.TurnHoliday(2, 29);
  EXPECT_EQ(form.Holidays().size(), 49U);
  form.TurnHoliday(2, 29);
  EXPECT_EQ(form.Holidays().back(), std::pair(2, 29));
}

}  // namespace
}  // namespace tarvok::test
