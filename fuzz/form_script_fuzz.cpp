// Any keys and clicks on the form named in the first line or, with " csv" after the name, any text as its
// table: no editor fails, and none writes invalid data.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <set>
#include <string>
#include <unordered_set>

#include "editing/table_csv.h"
#include "fuzz/editor_stage.h"
#include "project/check.h"
#include "tests/floors.h"

namespace {

using namespace tarvok::fuzz;

/**
 * What a user can cause although every editor works correctly: references to removed rows, numbers given
 * twice, a type that no longer fits its value.
 */
constexpr std::string_view kCausedByUsers[] = {"points nowhere", "is also in row", "is in this row twice",
                                               "must be empty with this", "which has a different"};

/** Card and channel of a port may be any two digits. */
bool IsPlaceOfPort(const Finding& finding) {
  return finding.section == "Port_Def" && (finding.field == "Card" || finding.field == "Channel");
}

/**
 * True if the project has not been checked yet: many scripts end in the same projects, and checking is
 * expensive.
 */
bool IsNew(const std::string& project) {
  constexpr std::size_t kMostKept = 200'000;
  static std::unordered_set<std::size_t> judged;
  if (judged.size() >= kMostKept) judged.clear();
  return judged.insert(std::hash<std::string>()(project)).second;
}

/** The findings of `check` that no user could have caused. */
std::set<std::string> FaultsOf(const std::string& project) {
  std::set<std::string> faults;
  for (const Finding& finding : CheckProject(IniText(project))) {
    const bool by_people =
        std::any_of(std::begin(kCausedByUsers), std::end(kCausedByUsers),
                    [&](std::string_view words) { return finding.what.find(words) != std::string::npos; });
    if (!by_people && !IsPlaceOfPort(finding))
      faults.insert(finding.section + " " + finding.key + " " + finding.field + ": " + finding.what);
  }
  return faults;
}

void RunLines(tarvok::fuzz::EditorStage& stage, std::string_view text) {
  constexpr int kMostLines = 60;
  FormScript script(stage.form(), stage.questions());
  for (int line = 0; line < kMostLines && !text.empty() && !stage.form().closed(); ++line) {
    // An invalid line is reported and changes nothing; continue with the next one.
    [[maybe_unused]] const std::string wrong = script.Run(tarvok::fuzz::TakeLine(text));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  constexpr std::string_view kCsv = " csv";
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::string_view name = fuzz::TakeLine(text);
  const bool takes_csv = name.ends_with(kCsv);
  if (takes_csv) name.remove_suffix(kCsv.size());
  fuzz::EditorStage stage(fuzz::EditorOf(name));
  if (!takes_csv) {
    RunLines(stage, text);
  } else if (TableEditor* table = stage.form().table(); table != nullptr) {
    [[maybe_unused]] const Status taken = ImportCsv(*table, text);
  }
  [[maybe_unused]] const bool saved = stage.form().closed() || stage.form().SaveFile();
  if (stage.Project() == fuzz::EditorStage::Hotel() || !IsNew(stage.Project())) return 0;
  static const std::set<std::string> before = FaultsOf(fuzz::EditorStage::Hotel());
  for (const std::string& fault : FaultsOf(stage.Project())) {
    if (before.contains(fault)) continue;
    std::cerr << fault << std::endl;
    std::abort();
  }
  return 0;
}
