#include "sections/ports/key_dss.h"

#include <array>
#include <string>

#include "sections/records.h"
#include "sections/routing/group_out.h"
#include "store/value_code.h"

namespace tarvok::sections {
namespace key_dss {
namespace {

constexpr Field kDialled = Digits("Number", 20, "*#");
constexpr Field kNumber = Digits("Number", 20);
constexpr Field kShortNumber = Digits("Number", 6);
constexpr Field kShortDialled = Digits("Number", 6, "*#");
constexpr Field kMapOfTrunk = Digits("Map Digit", 14);
constexpr Field kMapOfGroup = Digits("Map Digit", 18);
constexpr Field kGroup = RowOf("Group Out", group_out::kTable, 0);
constexpr Field kOldGroup = RowOf("Group Out", group_out::kTable, 2);
constexpr Field kLine = Number("Line", 1, kLinesOfLayout);

constexpr CodedValue kKeyCodes[] = {
    {kTelephone, &kDialled},
    {kTrunk, &kNumber},
    {kTrunk, &kShortNumber, &kMapOfTrunk},
    {kExtension, &kNumber},
    {kGroupOut, &kGroup},
    {kGroupOut, &kGroup, &kMapOfGroup},
    {kMultiline, &kLine, nullptr, true},
    {kOldGroupOut, &kOldGroup},
};
constexpr CodedValue kDssCodes[] = {
    {kTelephone, &kShortDialled}, {kTrunk, &kShortNumber}, {kExtension, &kShortNumber}};

constexpr Field kKeyFields[] = {Coded("Key", kKeyCodes)};
constexpr Field kDssFields[] = {Coded("DSS", kDssCodes)};

constexpr int kKeyEntry = 11;
constexpr int kDssEntry = 4;
constexpr int kKeyBytes = kKeyEntry - 1;
constexpr int kDssBytes = kDssEntry - 1;
constexpr int kDssStart = kKeysOfLayout * kKeyEntry;
constexpr int kLayout = kDssStart + kDssOfLayout * kDssEntry;
constexpr int kTrunkBytes = 3;
constexpr std::string_view kLines = "12345";

/** A button's text, split into its parts. */
struct Button {
  std::string_view code;      // the first two characters
  std::string_view argument;  // the rest
  std::string_view number;    // the argument up to its first comma
  std::string_view map;       // what follows that comma
  bool has_map = false;
};

Button Split(std::string_view text) {
  Button button;
  button.code = text.substr(0, 2);
  button.argument = text.substr(button.code.size());
  const std::size_t comma = button.argument.find(',');
  button.number = button.argument.substr(0, comma);
  button.has_map = comma != std::string_view::npos;
  if (button.has_map) button.map = button.argument.substr(comma + 1);
  return button;
}

bool IsUnset(std::string_view text) {
  return text.empty() || text == kUnset;
}

void EncodeKey(ImageWriter& image, int at, std::string_view text, ValueWriter value) {
  if (IsUnset(text)) {
    image.Fill(at + 1, kKeyBytes, 255);
    return;
  }
  const Button key = Split(text);
  if (key.code == kTelephone) {
    image.Byte(at, 1);
    value.Digits(at + 1, kKeyBytes, key.argument, DialSymbols::kDigitsStarHash);
  } else if (key.code == kTrunk) {
    image.Byte(at, 2);
    if (key.has_map) {
      value.Digits(at + 1, kTrunkBytes, key.number);
      value.Digits(at + 1 + kTrunkBytes, kKeyBytes - kTrunkBytes, key.map);
    } else {
      value.Digits(at + 1, kKeyBytes, key.argument);
    }
  } else if (key.code == kExtension) {
    image.Byte(at, 3);
    value.Digits(at + 1, kKeyBytes, key.argument);
  } else if (key.code == kGroupOut) {
    image.Byte(at, 4);
    value.Byte(at + 1, Val(key.number));
    value.Digits(at + 2, kKeyBytes - 1, key.map);
  } else if (key.code == kMultiline) {
    image.Byte(at, 5);
    value.Byte(at + 1, Val(key.argument));
  }  // an entry with any other code is all 0
}

void EncodeDss(ImageWriter& image, int at, std::string_view text, ValueWriter value) {
  if (IsUnset(text)) return;
  const Button button = Split(text);
  // Trunks are sent as extensions, and unknown codes as telephone numbers.
  image.Byte(at, button.code == kTrunk || button.code == kExtension ? 3 : 1);
  value.Digits(at + 1, kDssBytes, button.argument,
               button.code == kTelephone ? DialSymbols::kDigitsStarHash : DialSymbols::kDigits);
}

/** Encodes all buttons of a layout, including those past the end of its row. A missing row stays 0. */
void EncodeButtons(const IniText& project, ImageWriter& image, const Table& table, int layout, int start,
                   int count, int entry, void (*encode)(ImageWriter&, int, std::string_view, ValueWriter)) {
  const std::string key = KeyOf(table, layout);
  const std::string_view row = RowValue(project, table, layout);
  if (row.empty()) return;
  const FieldList buttons(row);
  for (int i = 1; i <= count; ++i) {
    const std::string_view text = buttons[i];
    encode(image, start + (i - 1) * entry, text, ValueWriter(image, table, key, text, 1, i));
  }
}

/** Adds the digits of the bytes, skipping bytes 0. 255 is not special here, because an unset button has its
 * own type. */
void AddDigits(std::string& text, const ImageReader& entry, int at, int count,
               DialSymbols symbols = DialSymbols::kDigits) {
  AppendDigits(entry.Bytes(at, count), symbols, SkippedBytes::kZero, text);
}

/** Adds a comma and the digits, or nothing if there are no digits. */
void AddMap(std::string& text, const ImageReader& entry, int at, int count) {
  text += ',';
  AddDigits(text, entry, at, count);
  if (text.back() == ',') text.pop_back();
}

/** Adds the line given by the entry's first digit, if that is a valid line. */
void AddLine(std::string& key, const ImageReader& entry) {
  for (const std::uint8_t byte : entry.Bytes(1, kKeyBytes)) {
    if (byte == 0) continue;
    const char line = DecToHex(byte).front();
    if (kLines.find(line) != std::string_view::npos) key += line;
    break;
  }
}

void DecodeKey(const ImageReader& entry, std::string& key) {
  switch (entry.Byte(0)) {
    case 1:
      key = kTelephone;
      AddDigits(key, entry, 1, kKeyBytes, DialSymbols::kDigitsStarHash);
      break;
    case 2:
      key = kTrunk;
      AddDigits(key, entry, 1, kTrunkBytes);
      AddMap(key, entry, 1 + kTrunkBytes, kKeyBytes - kTrunkBytes);
      break;
    case 3:
      key = kExtension;
      AddDigits(key, entry, 1, kKeyBytes);
      break;
    case 4:
      key = kGroupOut;
      key += std::to_string(entry.Byte(1));
      AddMap(key, entry, 2, kKeyBytes - 1);
      break;
    case 5:
      key = kMultiline;
      AddLine(key, entry);
      break;
    default:
      key = kUnset;
  }
}

std::string DecodeDss(const ImageReader& entry) {
  const int type = entry.Byte(0);
  if (type < 1 || type > 3) return std::string(kUnset);
  const std::string_view code = type == 1 ? kTelephone : type == 2 ? kTrunk : kExtension;
  std::string button(code);
  AddDigits(button, entry, 1, kDssBytes, type == 1 ? DialSymbols::kDigitsStarHash : DialSymbols::kDigits);
  return button == code ? std::string(kUnset) : button;
}

/** Gives each "ML" without a line the lowest free one, until five lines are in use. A line that is used twice
 * counts twice. */
void NumberMultilines(std::array<std::string, kKeysOfLayout>& keys) {
  std::string lines;
  for (const std::string& key : keys) {
    if (key.starts_with(kMultiline)) lines += key.substr(kMultiline.size());
  }
  for (std::string& key : keys) {
    if (lines.size() >= kLines.size()) return;
    if (key != kMultiline) continue;
    const char line = kLines[kLines.find_first_not_of(lines)];
    key += line;
    lines += line;
  }
}

}  // namespace

const Table kKeys = {.section = "Key",
                     .row_name = "Layout",
                     .command = "setupkey",
                     .rows = {1, kKeyLayouts, 2},
                     .fields = kKeyFields,
                     .repeats = true,
                     .members = {.most = kKeysOfLayout, .numbered = true},
                     .missing_differs = true};
const Table kDss = {.section = "DSS",
                    .row_name = "Layout",
                    .command = "setupkey",
                    .rows = {1, kKeyLayouts, 2},
                    .fields = kDssFields,
                    .repeats = true,
                    .members = {.most = kDssOfLayout, .numbered = true}};

}  // namespace key_dss

void EncodeKeyDss(const IniText& project, ImageWriter& image) {
  using namespace key_dss;
  for (int layout = 1; layout <= kKeyLayouts; ++layout) {
    const int start = (layout - 1) * kLayout;
    EncodeButtons(project, image, kKeys, layout, start, kKeysOfLayout, kKeyEntry, EncodeKey);
    EncodeButtons(project, image, kDss, layout, start + kDssStart, kDssOfLayout, kDssEntry, EncodeDss);
  }
}

void DecodeKeyDss(const ImageReader& image, IniEdit& project) {
  using namespace key_dss;
  std::array<std::string, kKeysOfLayout> keys;
  RowText row;
  for (int layout = 1; layout <= kKeyLayouts; ++layout) {
    const ImageReader entries = image.Record(layout - 1, kLayout);
    for (int i = 0; i < kKeysOfLayout; ++i)
      DecodeKey(entries.Record(i, kKeyEntry), keys[static_cast<std::size_t>(i)]);
    NumberMultilines(keys);
    row.Clear();
    for (const std::string& key : keys) row.Add(key);
    project.Set(kKeys.section, KeyOf(kKeys, layout), row.str());

    row.Clear();
    for (int i = 0; i < kDssOfLayout; ++i)
      row.Add(DecodeDss(entries.Part(kDssStart + i * kDssEntry, kDssEntry)));
    project.Set(kDss.section, KeyOf(kDss, layout), row.str());
  }
}

}  // namespace tarvok::sections
