#include "sections/system/run_script.h"

#include <string>

#include "sections/records.h"
#include "store/number_text.h"

namespace tarvok::sections {
namespace run_script {
namespace {

constexpr Field Script(std::string_view event) {
  return Number(event, 1, 510);
}

constexpr Field kFields[kScriptEvents] = {
    Script("Off Hook Time Out"), Script("Help"),        Script("Wake Up "),     Script("Busy"),
    Script("No Number"),         Script("Full Credit"), Script("E1 Record VM"),
};

constexpr std::string_view kEmptyRows[] = {"F|F|F|F|F|F|F|"};

constexpr int kBytes = 2;

}  // namespace

const Table kTable = {.section = "RunScript",
                      .row_name = "Run Script",
                      .command = "runscript",
                      .key = "Data",
                      .fields = kFields,
                      .empty_rows = kEmptyRows};

}  // namespace run_script

void EncodeRunScript(const IniText& project, ImageWriter& image) {
  using namespace run_script;
  image.Fill(0, image.size(), 255);
  RecordWriter scripts(image, 0, kTable, kTable.key, KeyValue(project, kTable));
  for (int event = 1; event <= kScriptEvents; ++event) scripts.MinusOneWord((event - 1) * kBytes, event);
}

void DecodeRunScript(const ImageReader& image, IniEdit& project) {
  using namespace run_script;
  std::string row;
  for (int event = 1; event <= kScriptEvents; ++event)
    row += image.RawPlusOneWord((event - 1) * kBytes) + "|";
  if (row == kTable.empty_rows.front()) row.clear();
  project.Set(kTable.section, kTable.key, row);
}

}  // namespace tarvok::sections
