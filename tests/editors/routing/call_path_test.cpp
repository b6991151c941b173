#include "project/call_path.h"

#include "tests/editors/editor_bench.h"
#include "tests/floors.h"
#include "tests/matchers.h"

namespace tarvok::test {
namespace {

void Collect(const PathNode& node, int depth, std::vector<std::string>& lines) {
  lines.push_back(std::string(static_cast<std::size_t>(depth), '>') + node.text + " @" + node.place.section +
                  " " + node.place.key);
  for (const PathNode& child : node.children) Collect(child, depth + 1, lines);
}

std::vector<std::string> Lines(const PathNode& node) {
  std::vector<std::string> lines;
  Collect(node, 0, lines);
  return lines;
}

TEST(CallPath, OutgoingCallsOfTheHotel) {
  const IniText hotel(SourceFile("/examples/hotel.tvk"));
  EXPECT_THAT(
      Lines(WayOut(hotel, 7)),
      ElementsAre("Digits 00ZXX, DID Ext, release CO, timeout 120 @Route_Map_Digit 007",
                  ">List 3 @Route_List 03",
                  ">>Route 1, from 08:00 to 17:59, seek Cycle, send 0A, save 0A @Route 004",
                  ">>>Group Out 1 @Group_Out 01", ">>>>Card 1, channels 1 to 24 (E1) @Port_Def 001",
                  ">>Route 2, from 18:00 to 07:59, seek End, send 0A, save 0A @Route 005",
                  ">>>Group Out 2 @Group_Out 02", ">>>>Card 1, channels 25 to 30 (E1) @Port_Def 025"));
  EXPECT_THAT(Lines(WayOut(hotel, 1)),
              ElementsAre("Digits #9 @Route_Map_Digit 001", ">Extension @Route_Map_Digit 001"));
}

TEST(CallPath, IncomingCallsOfTheHotel) {
  const IniText hotel(SourceFile("/examples/hotel.tvk"));
  const std::vector<std::string> reception = {
      "Number 100 Reception, Hunt Circular @Assign 001", ">Hunt Group 1 @HuntGroup 01",
      ">>Number 501 Reception 1, Port @Assign 123", ">>>Card 4, channel 1 (8 DIGITAL) @Port_Def 043"};
  const std::vector<std::string> did = Lines(WayInOfDid(hotel, 1));
  ASSERT_GE(did.size(), 6U);
  EXPECT_EQ(did[0], "E1 1, ports 1/1 to 1/24, Network @E1Map 01");
  EXPECT_EQ(did[1], ">DID 100 @DIDRedirect 001");
  for (std::size_t i = 0; i < reception.size(); ++i) EXPECT_EQ(did[i + 2], ">>" + reception[i]);
  const PathNode port = WayInOfPort(hotel, 1);
  ASSERT_EQ(port.children.size(), 1U);
  const PathNode& list = port.children[0];
  EXPECT_EQ(list.text, "By day and night: Incoming List 3, Direct dial, time out 40");
  ASSERT_EQ(list.children.size(), 2U);
  EXPECT_EQ(list.children[0].text, "First: DID");
  EXPECT_EQ(list.children[0].children[0].children[1].text, "DID 101 to 430: Route Digit");
  EXPECT_EQ(list.children[1].text, "Second: Number 100 Reception, Hunt Circular");
}

TEST(CallPath, ShowsMissingTargetsAsText) {
  const IniText project(
      "[Route_Map_Digit]\n001=F|F|F|F|0\n002=1|F|02|F|0\n003=2|F|01|F|255\n004=3|F|77|F|0\n005=4\n"
      "[Route_List]\n01=5\n02=3\n[Route]\n001=F|F|1|9|2|08|F|F|F\n002=09|F|0|F|F|F|F|F|F\n"
      "004=01|F|0|F|F|F|F|F|F\n[Group_Out]\n01=003|499|001|99999\n[Port_Def]\n001=1|1|1|F|F|F|001|002\n"
      "003=2|1|2|F|F|F|F|F\n[Incoming_List]\n01=F|1000|007|001|F\n[E1Map]\n01=F|F|0\n[Assign]\n"
      "001=1|4|1|F|F\n002=2|7|3|F|F\n003=3|F|F|F|F\n[HuntGroup]\n01=001|500\n[DIDRedirect]\n001=1|5|F|0|F\n"
      "002=F|F|F|F|9\n003=44|1|1|1|05\n004=1|F|F|0|003\n");
  EXPECT_THAT(Lines(WayOut(project, 1)), ElementsAre("Nothing is set in this row @Route_Map_Digit 001"));
  EXPECT_EQ(WayOut(project, 2).children[0].text, "List 2 has no route");
  EXPECT_EQ(WayOut(project, 4).children[0].text, "The route list does not exist");
  EXPECT_EQ(WayOut(project, 5).children[0].text, "No route list is set");
  EXPECT_THAT(Lines(WayOut(project, 3)),
              ElementsAre("Digits 2, timeout No Limit @Route_Map_Digit 003", ">List 1 @Route_List 01",
                          ">>Route 1, on SUN, date 9, month 2, from 08 @Route 001",
                          ">>>No group out is set @Route 001", ">>Route 2 @Route 002",
                          ">>>Group Out 9 has no trunk @Group_Out 09", ">>Route 3 @Route 004",
                          ">>>Group Out 1 @Group_Out 01", ">>>>Card 2, channel 1 (TRUNK 16) @Port_Def 003",
                          ">>>>Port 499 has no card and channel @Port_Def 499",
                          ">>>>Card 1, channel 1 (SLIC 16) is not a trunk @Port_Def 001",
                          ">>>>Port 501 has no card and channel @Port_Def 501"));
  // A hunt group that is a member of itself is named, not followed.
  EXPECT_THAT(
      Lines(WayInOfPort(project, 1)),
      ElementsAre("Card 1, channel 1 (SLIC 16) @Port_Def 001", ">By day: Incoming List 1 @Incoming_List 01",
                  ">>First: DID, but the port belongs to no E1 link @Incoming_List 01",
                  ">>Second: Number row 7 has no number @Assign 007",
                  ">>Third: Number 1, Hunt Circular @Assign 001", ">>>Hunt Group 1 @HuntGroup 01",
                  ">>>>Number 1, Hunt Circular @Assign 001", ">>>>>Hunt Group 1 @HuntGroup 01",
                  ">>>>Number row 500 has no number @Assign 500",
                  ">By night: Incoming List 2 has no destination @Incoming_List 02"));
  const std::vector<std::vector<std::string>> kRanges = {
      {"E1 1 has no ports @E1Map 01", ">DID 5 @DIDRedirect 001",
       ">>Number, but none is set @DIDRedirect 001"},
      {"No E1 link is set @DIDRedirect 002", ">No DID numbers @DIDRedirect 002",
       ">>No target is set @DIDRedirect 002"},
      {"The E1 link does not exist @DIDRedirect 003", ">DID 1 @DIDRedirect 003",
       ">>List 5 has no route @Route_List 05"},
      {"E1 1 has no ports @E1Map 01", ">No DID numbers @DIDRedirect 004",
       ">>Number 3 is not assigned to anything @Assign 003"}};
  for (int row = 1; row <= 4; ++row)
    EXPECT_THAT(Lines(WayInOfDid(project, row)),
                ElementsAreArray(kRanges[static_cast<std::size_t>(row) - 1]));
}

TEST(CallPath, AcceptsAnEmptyProjectAndMissingRows) {
  const IniText empty;
  for (const int row : {-1, 0, 1, 200, 5000}) {
    EXPECT_TRUE(WayOut(empty, row).children.empty());
    EXPECT_TRUE(WayInOfDid(empty, row).children.empty());
    EXPECT_EQ(WayInOfPort(empty, row).children.size(), 1U);
  }
}

}  // namespace
}  // namespace tarvok::test
