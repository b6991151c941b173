// The PABX mode and the billing mode.

#include "sections/system/billing_mode.h"
#include "sections/system/pabx_mode.h"
#include "tests/floors.h"
#include "tests/sections/record_case.h"
#include "tests/sections/wire_case.h"

namespace tarvok::test {
namespace {

TEST(PabxMode, EncodesAndDecodesFields) {
  ExpectCoded({EncodePabxMode, DecodePabxMode, "SystemConfig", "Pbx", 20, 0},
              {{"", "00*11 FF*9", kOut},
               // A different value in each field shows where it is sent, and that the seventh is not.
               {"1|2|3|4|5|6|7|8|9|10|1|1|1|1|1|0|500|1|1|20",
                "00 01 02 09 04 03 05 06 14 08 0A 01 01 01 02 01 F3 01 01 01", kOut},
               {"1|2|3|4|5|6|20|8|9|10|11|12|13|0|15|1|0|1|0|0",
                "63 01 02 09 04 03 05 06 14 08 0A 0B 0C 0D 00 0F 00 00 01 02", kBack},
               {"F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F", "00*16 FF FF 00 00", kOut},
               {"0|0|0|0|0|0|1|0|0|F|2|2|2|1|2|1|0|2|01|0", "00*14 01 00 FF FF 00 01", kOut},
               {"0|0|0|0|0|0|1|0|0|0|0|0|0|1|0|1|0|0|1|1", "00*8 01 00*5 01 00 05 00 00 01", kBack},
               {"0|0|0|0|0|0|0|0|0|254|0|0|0|1|0|F|001|0|0|0", "00*10 FE 00*3 01 00 00 00 00 00", kOut},
               {"0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|001|0|0|0", "00*14 02 00 00 00 00 00", kBack},
               {"0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|500|0|0|0", "00*14 02 00 F3 01 00 00", kBack},
               {"0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|0|0|0|0", "00*14 02 00 F4 01 00 00", kBack},
               {"1", "00 01 00*14 FF FF 00 00", kOut},
               {"F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|1|0|0|0|0", "FF*20", kBack},
               {"0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|1|0|0|0|0", "00*20", kBack},
               {"256", "Auto Print Call Record: value 256" + kTooLarge},
               {"0|-1", "Check Credit: value -1" + kNegative}});
}

const std::pair<Encoder, Decoder> kForms[] = {
    {EncodeBilling1, DecodeBilling1}, {EncodeBilling2, DecodeBilling2}, {EncodeBilling3, DecodeBilling3}};

TEST(BillingMode, EncodesEachForm) {
  const struct {
    std::string keys;
    std::string images[3];
  } cases[] = {
      {"", {"FF*40", "FF*40", "FF*40"}},
      {"CCode=007", {"FF*40", "FF*40", "FF*40"}},
      {"Billing=02|1|0|1|0|10.00|1.5|655.35|7|8|9|655|0.29|11|1.5|12|13|14|15|16|17|18|1|2.50|1\nCCode=007",
       {"02 00 01 00 01 00 E8 03 96 00 FF FF 07 08 09 DC FF 1D 00 96 00 0E 0F 10 11 12 07 00*13",
        "02 00 01 00 01 00 E8 03 96 00 FF FF 07 08 09 DC FF 1D 00 96 00 0E 0F 10 11 12 07 01 00*12",
        "02 00 01 00 01 00 E8 03 96 00 FF FF 07 08 09 DC FF 1D 00 0B 02 0E 0F 10 11 12 07 01 FA 00 01 00*9"}},
      // For "F", the local code and bytes are unset and amounts are 0. So are the fields missing from a row.
      {"Billing=F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F|F",
       {"FF*6 00*6 FF*3 00*6 FF*5 01 00*13", "FF*6 00*6 FF*3 00*6 FF*5 01 FF 00*12",
        "FF*6 00*6 FF*3 00*4 FF*2 FF*5 01 FF 00 00 FF 00*9"}},
      {"Billing=01",
       {"01 00 FF*4 00*6 FF*3 00*6 FF*5 01 00*13", "01 00 FF*4 00*6 FF*3 00*6 FF*5 01 FF 00*12",
        "01 00 FF*4 00*6 FF*3 00*4 FF*2 FF*5 01 FF 00 00 FF 00*9"}},
      // Rates are sent as 0 from 655.35 up. Whole numbers are rounded half to even.
      {"Billing=300|0|0|0|0|0|0|0|2.5|3.5|0|655.34|655.35|0|700|0|0|0|0|0|0|0|0|655.35|0\nCCode=255",
       {"2C 01 00*10 02 04 00 FE FF 00 00 00 00 00*5 FF 00*13",
        "2C 01 00*10 02 04 00 FE FF 00 00 00 00 00*5 FF 00*13",
        "section SystemConfig, row Billing, field Charge Expand: value 700" + kTooLarge}},
  };
  for (const auto& c : cases) {
    for (std::size_t form = 0; form < 3; ++form)
      ExpectImage(kForms[form].first, 40, "[SystemConfig]\n" + c.keys, 0, c.images[form]);
  }
}

TEST(BillingMode, RejectsValuesOutOfRange) {
  ExpectCoded({EncodeBilling3, DecodeBilling3, "SystemConfig", "Billing", 40, 0},
              {{"65536", "Local Code: value 65536" + kTooLarge},
               {"1|0|0|0|0|655.36", "Long Distance Charge %: value 655.36" + kTooLarge},
               {"1|0|0|0|0|0|0|-1", "Mobile Charge %: value -1" + kNegative},
               {"1|0|0|0|0|0|0|0|256", "Long Distance Charge: value 256" + kTooLarge}});
  ExpectImage(EncodeBilling3, 40, "[SystemConfig]\nBilling=1\nCCode=256", 0,
              "section SystemConfig, row CCode, field Country: value 256" + kTooLarge);
}

TEST(BillingMode, DecodesEachForm) {
  const struct {
    std::string image;
    std::string values[3];
    std::string country;
  } cases[] = {
      {"02 00 01 00 01 00 E8 03 96 00 FF FF 07 08 09 DC FF 1D 00 0B 02 0E 0F 10 11 12 07 01 FA 00 01 00*9",
       {"02|1|0|1|0|10.00|1.50|655.35|7|8|9|655.00|0.29|0|5.23|0|0|14|15|16|17|18|0|0|0",
        "02|1|0|1|0|10.00|1.50|655.35|7|8|9|655.00|0.29|0|5.23|0|0|14|15|16|17|18|1|0|0",
        "02|1|0|1|0|10.00|1.50|655.35|7|8|9|655.00|0.29|11|2|0|0|14|15|16|17|18|1|2.50|1"},
       "007"},
      {"FF*40",
       {"F|F|F|F|F|655.35|655.35|655.35|F|F|F|655.35|655.35|0|655.35|0|0|F|F|F|F|F|0|0|0",
        "F|F|F|F|F|655.35|655.35|655.35|F|F|F|655.35|655.35|0|655.35|0|0|F|F|F|F|F|F|0|0",
        "F|F|F|F|F|655.35|655.35|655.35|F|F|F|655.35|655.35|F|F|0|0|F|F|F|F|F|F|655.35|F"},
       "255"},
      {"05 FF",
       {"65285|0|0|0|0|0.00|0.00|0.00|0|0|0|0.00|0.00|0|0.00|0|0|0|0|0|0|0|0|0|0",
        "65285|0|0|0|0|0.00|0.00|0.00|0|0|0|0.00|0.00|0|0.00|0|0|0|0|0|0|0|0|0|0",
        "65285|0|0|0|0|0.00|0.00|0.00|0|0|0|0.00|0.00|0|0|0|0|0|0|0|0|0|0|0.00|0"},
       "000"},
  };
  for (const auto& c : cases) {
    for (std::size_t form = 0; form < 3; ++form) {
      const IniText project =
          Decoded(kForms[form].second, Hex(c.image), "[SystemConfig]\nCCode=001\nPbx=1\n");
      SCOPED_TRACE(c.image + " in form " + std::to_string(form + 1));
      ExpectKeys(project, "[SystemConfig]\nPbx=1\nBilling=" + c.values[form] + "\nCCode=" + c.country + "\n");
    }
  }
}

}  // namespace
}  // namespace tarvok::test
