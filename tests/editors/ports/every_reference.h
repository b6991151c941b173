#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/editors/editor_bench.h"
#include "tests/floors.h"

namespace tarvok::test {

/** The value of a port row. `place` is card, channel and type; `forward` is a field without a column. */
inline std::string Port(std::string_view place, std::string_view number = "F",
                        std::string_view forward = "F") {
  return std::string(place) + "|F|F|F|F|F|F|" + std::string(forward) + "|F|F|F|F|F|" + std::string(number) +
         "|F|F|F|F|F|F|F";
}

/** A project with every kind of reference to ports and numbers. A save reorders both: ports to 5, 4, 3, 1, 2
 * and numbers to 2, 1, 3. */
inline std::string EveryReference() {
  return "[Port_Def]\nMax=500\nNow=5\n001=" + Port("3|1|6") + "\n002=" + Port("3|2|6") +
         "\n003=" + Port("2|1|2") + "\n004=" + Port("1|2|1", "002") + "\n005=" + Port("1|1|1", "001", "77") +
         "\n[Assign]\nMax=500\nNow=4\n001=201|0|005|2|002\n002=200|0|004|F|F\n003=300|1|1|F|001\n[Name]\n"
         "Max=500\nNow=2\n001=Desk\n002=Bar\n[HuntGroup]\nMax=20\nNow=3\n01=001|002\n02=002\n[Account]\n"
         "001=11|22|001|F|F|F\n002=12|22|002|F|F|F\n[BOSS]\n01=005|004\n02=004|F\n[E1Map]\nMax=10\n"
         "01=001|002|0\n[Group_Out]\nMax=32\nNow=3\n01=003|001\n02=002\n[Incoming_List]\nMax=50\nNow=1\n"
         "01=Night|001|1000|002|20\n[DIDRedirect]\n001=1|0|9|0|001\n002=1|5|6|1|01\n[SystemConfig]\n"
         "Pbx=0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|005|0|0|0\n";
}

}  // namespace tarvok::test
