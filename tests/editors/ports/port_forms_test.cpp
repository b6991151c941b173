// The tables of accounts, bosses, call forward and voice mail.

#include "tests/editors/ports/every_reference.h"

namespace tarvok::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Accounts, WhatIsTypedAndPickedIsStored) {
  EditorBench bench(EveryReference());
  EXPECT_THAT(
      bench.Run(
          "frmAccount",
          "list cmbMask\ngo 3 Account\ntype 12345678\ngo 3 Password\ntype 99999\ngo 3 Number\npick 201\n"
          "go 3 Config\npick 20\ngo 3 Tenan\npick 32\ngo 3 6\ntype 7200x1\ngo 1 Number\npick\n"
          "go 2 1\nclick mnu_insert_row\nclick cmdOK\n"),
      ElementsAre("200", "201"));
  bench.ExpectKeys(
      "[Account]\n001=11|22|F|F|F|F\n-002\n003=12|22|002|F|F|F\n004=123456|9999|001|20|32|7200\n");
}

TEST(Accounts, RepeatsAreAskedAboutAndOldRowsKept) {
  EditorBench bench(
      "[Assign]\nNow=3\n001=5|0|001\n002=7|0|002\n003=7|0|003\n[Account]\n001=1|2|3|25|F|F\n002=1|2|9\n");
  EXPECT_THAT(bench.Run("frmAccount",
                        "go 3 1\ntype 2\nclick cmdCheck\nvalue lblRepeat\nlist lsRepeat\n"
                        "answer No\nclick cmdOK\n"),
              ElementsAre("Show repeat number :", "1",
                          "ask: There are repeat Account. Do you still want to save? -> No"));
  EXPECT_THAT(bench.Go("go 2 1\ntype 1\nclick cmdCheck\nvalue lblRepeat\nclick cmdOK\n"),
              ElementsAre("No repeat Account"));
  // The number stands twice; the row stays with the one that it had, and one that is not there is none.
  bench.ExpectKeys("[Account]\n001=1|2|003|25|F|F\n002=11|2|F|F|F|F\n");
}

TEST(Bosses, AreKnownByTheirNumbers) {
  EditorBench bench(EveryReference());
  EXPECT_THAT(bench.Run("frmBoss", "show\n")[1], "1\t201\t200");
  bench.Go(
      "go 3 BOSS\ntype 200\ngo 3 SECRETARY\ntype 300\ngo 4 2\npick 201\ngo 1 2\npress Delete\nclick cmdOK\n");
  bench.ExpectKeys("[BOSS]\n01=005|F\n02=004|F\n03=004|F\n04=F|005\n20=F|F\n");
}

TEST(CallForward, RowsStandCloserThanTheirKeys) {
  EditorBench bench(
      "[Port_Def]\nNow=5\n001=1|1|1\n002=1|2|1|F|F|F|F|F|0|1|2|3|4|5|255|001|9|8|7|2|1|3|1\n005=" +
      Port("2|1|1", "F", "77") + "\n[Assign]\nNow=1\n001=201|0|002\n");
  EXPECT_THAT(bench.Run("frmCallFW", "show\n"),
              ElementsAre("\tCard\tChannel\tNumber\tDND\tDisa\tCo\tExt\tBusy\tNoAns\tRing T.",
                          "1\t1\t1\t\t\t\t\t\t\t\t", "2\t1\t2\t201\t\t1\t2\t3\t4\t5\t255",
                          "3\t2\t1\t\t\t77\t\t\t\t\t"));
  EXPECT_THAT(
      bench.Go("go 1 Card\ntype 9\ngo 3 DND\npick DND\ngo 3 Disa\ntype 12345678901234\ngo 1 10\ntype 0256\n"
               "click cmdSort\nclick cmdSort\nclick cmdOK\n"),
      IsEmpty());
  bench.ExpectKeys(
      "[Port_Def]\n001=1|1|1|F|F|F|F|F|F|F|F|F|F|F|25|F|F|F|F|F|F|F|F\n"
      "002=1|2|1|F|F|F|F|F|F|1|2|3|4|5|254|001|9|8|7|2|1|3|1\n-003\n"
      "005=2|1|1|F|F|F|F|F|1|771234567890|F|F|F|F|F|F|F|F|F|F|F|F|F\n");
}

TEST(VoiceMail, FieldsStandInAnotherOrderThanTheColumns) {
  EditorBench bench("[Port_Def]\nNow=3\n002=" + Port("1|2|1", "F", "77") +
                    "\n003=1|3|1|F|F|F|F|F|1|F|F|F|F|F|F|F|F|0|5|1|0|0|F\n");
  bench.Run(
      "frmVMBox",
      "go 1 4\npick Use & Auto Record\ngo 1 Group\ntype 0255\ngo 1 Language\ntype 255\n"
      "go 1 \"Call Screen\"\npick USE\ngo 1 \"Personal Msg\"\npick No\ngo 2 8\npick 4 Rings\nclick cmdOK\n");
  bench.ExpectKeys(
      "[Port_Def]\n002=1|2|1|F|F|F|F|F|F|77|F|F|F|F|F|F|F|25|255|0|1|3|F\n"
      "003=1|3|1|F|F|F|F|F|1|F|F|F|F|F|F|F|F|0|5|2|F|F|F\n");
}

}  // namespace
}  // namespace tarvok::test
