#include "sections/routing/e1_map.h"

#include <algorithm>
#include <string>
#include <vector>

#include "sections/ports/port_def.h"
#include "sections/records.h"

namespace tarvok::sections {
namespace e1_map {
namespace {

constexpr Choice kModeChoices[] = {
    {"0", "Local"}, {"1", "Network"}, {"2", "Local Link"}, {"3", "Network Link"}};

constexpr std::string_view kE1CardType = "6";
constexpr std::string_view kE1Cards[] = {kE1CardType};

constexpr auto kFields = FieldsOf({
    {kStart, RowOf("Start", port_def::kTable, 3).Only({port_def::kType, kE1Cards})},
    {kEnd, RowOf("End", port_def::kTable, 3).Only({port_def::kType, kE1Cards})},
    {kMode, OneOf("Mode", kModeChoices)},
});

/** An unused link as written by a load and by the editor; neither removes the key. */
constexpr std::string_view kEmptyRows[] = {"F|F|F", "F|F|0"};
constexpr int kNeeds[] = {kStart, kEnd};

constexpr int kRecord = 4;
constexpr int kLocalLinkByte = 0x10;
constexpr int kNetworkLinkByte = 0x11;

int ModeByte(std::string_view mode) {
  if (mode == "3") return kNetworkLinkByte;
  if (mode == "2") return kLocalLinkByte;
  return mode == "1" ? 1 : 0;
}

std::string ModeText(const ImageReader& record) {
  switch (record.Byte(3)) {
    case kNetworkLinkByte:
      return "3";
    case kLocalLinkByte:
      return "2";
    default:
      return record.Plain(3);
  }
}

/** Returns the row of port `number`, or "" if there is none. */
std::string_view PortOf(const IniText& project, std::int64_t number) {
  if (number < 1 || number > kPortRows) return {};
  return RowValue(project, port_def::kTable, static_cast<int>(number));
}

void EncodeLink(const IniText& project, ImageWriter& image, int link) {
  const int at = (link - 1) * kRecord;
  const std::string key = KeyOf(kTable, link);
  RecordWriter row(image, at, kTable, key, RowValue(project, kTable, link));
  if (!row.IsSet(kStart) || !row.IsSet(kEnd)) {
    row.Fill(0, kRecord, kUnsetByte);
    return;
  }
  // These writers read the ports' own rows, so an error names the port and not the link.
  const Table& ports = port_def::kTable;
  RecordWriter start(image, at, ports, row.Get(kStart), PortOf(project, row.Value(kStart)));
  RecordWriter end(image, at, ports, row.Get(kEnd), PortOf(project, row.Value(kEnd)));
  start.MinusOne(0, port_def::kCard);
  start.MinusOne(1, port_def::kChannel);
  end.MinusOne(2, port_def::kChannel);
  row.Byte(3, ModeByte(row.Get(kMode)));
}

/** Returns "card/channel" of each E1 port, indexed by row number; "" for all other rows. */
std::vector<std::string> E1Ports(const IniEdit& project) {
  const Table& table = port_def::kTable;
  const auto rows = std::clamp<std::int64_t>(Val(project.Get(table.section, kMaxKey)), 0, kPortRows);
  std::vector<std::string> ports(static_cast<std::size_t>(rows) + 1);
  for (std::size_t number = 1; number < ports.size(); ++number) {
    const std::string_view port = project.View(table.section, KeyOf(table, static_cast<int>(number)));
    const std::string_view card = GetField(port, port_def::kCard);
    const std::string_view channel = GetField(port, port_def::kChannel);
    if (card == kUnset || channel == kUnset || GetField(port, port_def::kType) != kE1CardType) continue;
    ports[number].append(card).append("/").append(channel);
  }
  return ports;
}

std::string FindPort(const std::vector<std::string>& ports, int card, int channel) {
  const auto found =
      std::find(ports.begin(), ports.end(), std::to_string(card) + "/" + std::to_string(channel));
  return found == ports.end() ? std::string(kUnset) : Padded(found - ports.begin(), 3);
}

void DecodeLink(const ImageReader& record, const std::vector<std::string>& ports, RowText& row) {
  if (record.Byte(0) == kUnsetByte || record.Byte(1) == kUnsetByte) {
    row.Add(kUnset).Add(kUnset).Add(kUnset);
  } else {
    const int card = record.Byte(0) + 1;
    row.Add(FindPort(ports, card, record.Byte(1) + 1));
    row.Add(FindPort(ports, card, record.Byte(2) + 1));
    row.Add(ModeText(record));
  }
}

}  // namespace

const Table kTable = {.section = "E1Map",
                      .row_name = "E1",
                      .command = "e1mapping",
                      .rows = {1, kE1Links, 2},
                      .fields = kFields,
                      .empty_rows = kEmptyRows,
                      .needs = kNeeds,
                      .now = NowCounts::kRows};

}  // namespace e1_map

void EncodeE1Map(const IniText& project, ImageWriter& image) {
  using namespace e1_map;
  for (int link = 1; link <= kE1Links; ++link) EncodeLink(project, image, link);
}

void DecodeE1Map(const ImageReader& image, IniEdit& project) {
  using namespace e1_map;
  const std::vector<std::string> ports = E1Ports(project);
  StoreRowCounts(project, kTable, kE1Links);
  DecodeRows(
      image, project, kTable, kRecord,
      [&](const ImageReader& record, RowText& row) { DecodeLink(record, ports, row); }, NoneUnused);
}

}  // namespace tarvok::sections
