#include "editing/editor_form.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "store/field_list.h"
#include "store/project_there.h"

namespace tarvok::editing {
namespace {

constexpr std::string_view kChangedByOthers =
    "The project was changed by another program.\nYes overwrites what the other program wrote to this "
    "table.\nDo you still want to save?";

}  // namespace

EditorForm::EditorForm(EditorContext context, FormName name)
    : context_(std::move(context)),
      name_(name),
      ok_(AddButton("cmdOK", "S&ave", [this] { Ok(); })),
      cancel_(AddButton("cmdCancel", "&Cancel", [this] { Cancel(); })) {}

void EditorForm::Open() {
  const bool loading = std::exchange(context_.state.form_loading, true);
  const std::shared_ptr<const IniText> project = context_.store.Snapshot(project_file());
  loaded_ = project;  // replaced by a newer one if the form writes while it loads
  Load(*project);
  context_.state.form_loading = loading;
}

void EditorForm::MarkChanged() {
  if (!context_.state.form_loading) context_.state.data_changed = true;
}

FormLayout EditorForm::OkAndCancel() {
  return layout::Row({layout::Stretch(), layout::Of(ok_), layout::Of(cancel_)});
}

bool EditorForm::SaveFile() {
  save_refused_ = !Save();
  return !save_refused_;
}

bool EditorForm::Save() {
  if (table() != nullptr) table()->LeaveCell();
  if (!project_file().empty() && !ProjectIsThere()) return false;
  if (!MaySave()) return false;
  BeforeWrite();
  if (project_file().empty()) {
    context_.questions.Box(kErrorFileName, true);
    if (EndsWithoutProject() && context_.end_program) context_.end_program();
    return false;
  }
  if (!OthersLeftItAlone()) return false;
  IniEdit trial(*context_.store.Snapshot(project_file()));
  cleared_.clear();
  Write(trial);
  if (!FitsTheReader(trial) || !MayClear(trial)) return false;
  if (context_.keep) context_.keep("Before saving " + std::string(name_.title));
  const Status written = context_.store.Update(project_file(), [this](IniEdit& project) {
    if (IsProject(project.base())) Write(project);  // the file may have gone while a question was open
  });
  if (!written.ok()) {
    context_.questions.Box(written.message(), true);
    return false;
  }
  if (!ProjectIsThere()) return false;
  loaded_ = context_.store.Snapshot(project_file());
  Saved();
  return true;
}

std::shared_ptr<const IniText> EditorForm::AsEdited() {
  std::shared_ptr<const IniText> project = context_.store.Snapshot(project_file());
  if (!context_.state.data_changed) return project;
  IniEdit edited(*project);
  Write(edited);
  return std::make_shared<IniText>(edited.Bytes());
}

bool EditorForm::ProjectIsThere() {
  const std::string problem = WhyNoProject(context_.store, project_file());
  if (!problem.empty()) context_.questions.Box(problem, true);
  return problem.empty();
}

bool EditorForm::OthersLeftItAlone() {
  const std::shared_ptr<const IniText> now = context_.store.Snapshot(project_file());
  return now == loaded_ || now->bytes() == loaded_->bytes() ||
         context_.questions.AskToOverwrite(kChangedByOthers, *loaded_);
}

/** Refuses, with a box, to write a value that would be cut when it is read. */
bool EditorForm::FitsTheReader(const IniEdit& trial) {
  const std::vector<std::string> too_long = trial.TooLong();
  if (too_long.empty()) return true;
  context_.questions.Box(too_long.front() + " and can't be saved.", true);
  return false;
}

void EditorForm::WillClear(std::vector<ClearedReference> references) {
  std::move(references.begin(), references.end(), std::back_inserter(cleared_));
}

/** Asks if what refers to removed rows may be cleared. */
bool EditorForm::MayClear(const IniEdit& trial) {
  std::erase_if(cleared_, [&](const ClearedReference& cleared) {
    const std::string value = trial.Get(cleared.section, cleared.key);
    return cleared.field > 0 && !GetField(value, cleared.field).empty() &&
           GetField(value, cleared.field) != kUnset;
  });
  if (cleared_.empty()) return true;
  std::vector<std::string> rows;
  std::vector<std::string> places;
  for (const ClearedReference& cleared : cleared_) {
    if (std::find(rows.begin(), rows.end(), cleared.row) == rows.end()) rows.push_back(cleared.row);
    places.push_back(cleared.row + ": " + cleared.place);
  }
  const std::string what = rows.size() == 1
                               ? rows.front() + " is used in "
                               : std::to_string(rows.size()) + " rows that you remove are used in ";
  const std::string become = places.size() == 1
                                 ? "1 place, which becomes not set."
                                 : std::to_string(places.size()) + " places, which become not set.";
  return context_.questions.AskToClear(what + become + "\nDo you want to save?", places);
}

void EditorForm::Ok() {
  if (context_.state.data_changed && !SaveFile()) return;
  Close();
}

void EditorForm::Cancel() {
  if (context_.state.data_changed) {
    const OnLeaving answer = context_.questions.AskToSave(kDataWasChanged);
    if (answer == OnLeaving::kStayOpen || (answer == OnLeaving::kSave && !SaveFile())) return;
  }
  Close();
}

void EditorForm::Close() {
  closed_ = true;
  if (on_closed) on_closed();
}

}  // namespace tarvok::editing
