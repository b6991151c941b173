#pragma once

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "editing/form_script.h"
#include "editors/editors.h"
#include "tests/floors.h"
#include "tests/store/memory_files.h"

namespace tarvok::fuzz {

/** An editor on a project in memory, for targets that enter a user's texts into forms. */
class EditorStage {
 public:
  static constexpr const char* kProject = "/p/hotel.tvk";

  explicit EditorStage(const Editor& editor) {
    files_.Put(kProject, Hotel());
    state_.project_file = kProject;
    form_ = OpenEditor(editor, {.store = store_,
                                .state = state_,
                                .questions = questions_,
                                .system_file = "/s/system.tvs",
                                .keep = {},
                                .end_program = {}});
  }

  /**
   * The example hotel with only the first rows of each section: the cost of most operations grows with the
   * number of rows.
   */
  static const std::string& Hotel() {
    static const std::string text = FirstRows(16);
    return text;
  }

  std::string Project() { return files_.Bytes(kProject); }
  EditorForm& form() { return *form_; }
  ScriptedQuestions& questions() { return questions_; }

 private:
  static std::string FirstRows(int most) {
    std::ifstream file(TARVOK_SOURCE_DIR "/examples/hotel.tvk", std::ios::binary);
    std::string rows;
    int row = 0;
    for (std::string line; std::getline(file, line); ++row) {
      if (line.starts_with('[')) row = 0;
      if (row <= most) rows.append(line).append("\n");
    }
    return rows;
  }

  MemoryFiles files_;
  ProjectStore store_{files_};
  SharedState state_;
  ScriptedQuestions questions_{[](std::string_view) {}};
  std::unique_ptr<EditorForm> form_;
};

/** The editor named `form`; any other text selects one by its first byte. */
inline const Editor& EditorOf(std::string_view form) {
  const std::span<const Editor* const> all = Editors();
  const Editor* editor = FindEditor(form);
  if (editor != nullptr) return *editor;
  return *all[(form.empty() ? 0 : static_cast<std::uint8_t>(form[0])) % all.size()];
}

/** Removes the first line of a text and returns it. */
inline std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
  return line;
}

}  // namespace tarvok::fuzz
