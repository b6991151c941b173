#include "sections/system/system_numbers.h"

#include "sections/records.h"
#include "sections/system/system_config.h"
#include "store/number_text.h"

namespace tarvok::sections {
namespace system_numbers {
namespace {

constexpr int kNumberBytes = 3;
constexpr Field kNumberFields[] = {Digits("Number", kNumberBytes * 2)};
constexpr Field kCardFields[] = {Number("Card", 1, 16)};
constexpr Field kPortFields[] = {Number("Port", 1, 60)};

void EncodeNumber(const IniText& project, ImageWriter& image, const Table& table) {
  PutNumber(image, 0, kNumberBytes, table, table.key, KeyValue(project, table));
}

void DecodeNumber(const ImageReader& image, IniEdit& project, const Table& table) {
  project.Set(table.section, table.key,
              UnpackDigits(image.Bytes(0, kNumberBytes), DialSymbols::kDigits, SkippedBytes::kNone));
}

}  // namespace

const Table kVoiceMail = {.section = kSystemConfig,
                          .row_name = "Voice Mail",
                          .command = "systemconfig",
                          .key = "VMNum",
                          .fields = kNumberFields};
const Table kRecord = {.section = kSystemConfig,
                       .row_name = "Record",
                       .command = "systemconfig",
                       .key = "RecNum",
                       .fields = kNumberFields};
const Table kMusicCard = {.section = kSystemConfig,
                          .row_name = "Music Source",
                          .command = "systemconfig",
                          .key = "card",
                          .fields = kCardFields};
const Table kMusicPort = {.section = kSystemConfig,
                          .row_name = "Music Source",
                          .command = "systemconfig",
                          .key = "port",
                          .fields = kPortFields};

}  // namespace system_numbers

void EncodeVMNumber(const IniText& project, ImageWriter& image) {
  system_numbers::EncodeNumber(project, image, system_numbers::kVoiceMail);
}

void EncodeRecordNumber(const IniText& project, ImageWriter& image) {
  system_numbers::EncodeNumber(project, image, system_numbers::kRecord);
}

void DecodeVMNumber(const ImageReader& image, IniEdit& project) {
  system_numbers::DecodeNumber(image, project, system_numbers::kVoiceMail);
}

void DecodeRecordNumber(const ImageReader& image, IniEdit& project) {
  system_numbers::DecodeNumber(image, project, system_numbers::kRecord);
}

void EncodeCardPortVM(const IniText& project, ImageWriter& image) {
  using namespace system_numbers;
  RecordWriter(image, 0, kMusicCard, kMusicCard.key, KeyValue(project, kMusicCard)).Plain(0, 1, 255);
  RecordWriter(image, 0, kMusicPort, kMusicPort.key, KeyValue(project, kMusicPort)).Plain(1, 1, 255);
}

void DecodeCardPortVM(const ImageReader& image, IniEdit& project) {
  using namespace system_numbers;
  project.Set(kMusicCard.section, kMusicCard.key, image.Plain(0));
  project.Set(kMusicPort.section, kMusicPort.key, image.Plain(1));
}

}  // namespace tarvok::sections
