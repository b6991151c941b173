#include "sections/system/pabx_mode.h"

#include <string>

#include "sections/ports/port_def.h"
#include "sections/records.h"
#include "sections/system/system_config.h"
#include "store/field_list.h"
#include "store/number_text.h"

namespace tarvok::sections {
namespace pabx_mode {
namespace {

constexpr Choice kDayNight[] = {{"0", "Day"}, {"1", "Night"}};
constexpr Choice kTargets[] = {{"0", "Extention Number"}, {"1", "Personal Message"}};
constexpr Choice kRevisions[] = {{"0", "Revision 1"}, {"1", "Revision 2"}};

constexpr auto kFields = FieldsOf({
    {kPrintCallRecord, Flag("Auto Print Call Record").UnsetAs("0")},
    {kCheckCredit, Flag("Check Credit").UnsetAs("0")},
    {kManual, Flag("Auto / Manual").UnsetAs("0")},
    {kCheckBadCo, Flag("Check Bad CO").UnsetAs("0")},
    {kWarningTone, Flag("Warning Tone Before Cut").UnsetAs("0")},
    {kPaperFeed, Flag("Paper Feed").UnsetAs("0")},
    {kCheckDuplicate, Flag("Check Duplicate Record")},
    {kRecordLastPerson, Flag("Record Last Person Use").UnsetAs("0")},
    {kManualMode, OneOf("Manual Mode", kDayNight).UnsetAs("0")},
    {kTrunkTimeLimit, Number("Trunk To Trunk Time Limit", 1, 254).UnsetAs("0")},
    {kVmCheckMapDigit, Flag("Voice Mail Check Map Digit")},
    {kCheckClassMemory, Flag("Check Class When Dial with Memory Code")},
    {kOnCoWhenX, Flag("On CO When Found \"X\" in Route Map Digit")},
    {kDidBusyTransfer, Flag("DID Busy Transfer To")},
    {kPrintWakeup, Flag("Print Wakeup Call")},
    {kTransferTarget, OneOf("DID Busy Target", kTargets)},
    {kTransferPort, RowOf("Extention Number", port_def::kTable, 3).ShownBy(port_def::kNumber).UnsetAs("0")},
    {kTrunkToTrunk, Flag("Use Trunk To Trunk")},
    {kIntrusionTone, Flag("Use Intrusion Tone")},
    {kPowerRevision, OneOf("Power Revision", kRevisions)},
});

// Byte 14: where a DID call to a busy number is transferred.
constexpr int kToMessage = 1;
constexpr int kToNumber = 2;

int BusyTransferByte(const RecordWriter& mode) {
  if (mode.Get(kDidBusyTransfer) != "1") return 0;
  return mode.Get(kTransferTarget) == "0" ? kToNumber : kToMessage;
}

void EncodeMode(RecordWriter& mode) {
  mode.Byte(0, 0);
  mode.Plain(1, kPrintCallRecord, 0);
  mode.Plain(2, kCheckCredit, 0);
  mode.Plain(3, kManualMode, 0);
  mode.Plain(4, kCheckBadCo, 0);
  mode.Plain(5, kManual, 0);
  mode.Plain(6, kWarningTone, 0);
  mode.Plain(7, kPaperFeed, 0);
  mode.Plain(8, kPowerRevision, 0);
  mode.Plain(9, kRecordLastPerson, 0);
  mode.Plain(10, kTrunkTimeLimit, 0);
  mode.Byte(11, mode.Get(kVmCheckMapDigit) == "1" ? 1 : 0);
  mode.Byte(12, mode.Get(kCheckClassMemory) == "1" ? 1 : 0);
  mode.Byte(13, mode.Get(kOnCoWhenX) == "1" ? 1 : 0);
  mode.Byte(14, BusyTransferByte(mode));
  mode.Byte(15, mode.Get(kPrintWakeup) == "1" ? 1 : 0);
  mode.MinusOneWord(16, kTransferPort);
  mode.Byte(18, mode.Value(kTrunkToTrunk) == 1 ? 1 : 0);
  mode.Byte(19, mode.Value(kIntrusionTone) == 1 ? 1 : 0);
}

/** The fields that byte 14 decides: whether a call to a busy number is transferred, and where to. */
struct BusyTransfer {
  std::string on;
  std::string target;
  std::string port;
};

BusyTransfer DecodeBusyTransfer(const ImageReader& image) {
  switch (image.Byte(14)) {
    case 255:
      return {std::string(kUnset), "1", "0"};
    case kToMessage:
      return {"1", "1", "0"};
    case kToNumber: {
      const int port = image.RawWord(16) + 1;
      return {"1", "0", port <= kPortRows ? Padded(port, 3) : "0"};
    }
    default:
      return {"0", "1", "0"};
  }
}

std::string FlagAt(const ImageReader& image, int at) {
  return image.Byte(at) == 1 ? "1" : "0";
}

}  // namespace

const Table kTable = {.section = kSystemConfig,
                      .row_name = "PABX Mode",
                      .command = "pabxmode",
                      .key = "Pbx",
                      .fields = kFields};

}  // namespace pabx_mode

void EncodePabxMode(const IniText& project, ImageWriter& image) {
  using namespace pabx_mode;
  const std::string_view value = KeyValue(project, kTable);
  if (value.empty()) {
    image.Fill(11, 9, 255);
    return;
  }
  RecordWriter mode(image, 0, kTable, kTable.key, value);
  EncodeMode(mode);
}

void DecodePabxMode(const ImageReader& image, IniEdit& project) {
  using namespace pabx_mode;
  const BusyTransfer busy = DecodeBusyTransfer(image);
  RowText row;
  for (const int at : {1, 2, 5, 4, 6, 7, 8, 9, 3, 10, 11, 12, 13}) row.Add(image.Plain(at));
  row.Add(busy.on);
  row.Add(image.Plain(15));
  row.Add(busy.target).Add(busy.port);
  for (const int at : {18, 19, 8}) row.Add(FlagAt(image, at));
  project.Set(kTable.section, kTable.key, row.str());
}

}  // namespace tarvok::sections
