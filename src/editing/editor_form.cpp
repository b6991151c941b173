#include "editing/editor_form.h"

#include <string>
#include <utility>
#include <vector>

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
  if (!OthersLeftItAlone() || !FitsTheReader(*context_.store.Snapshot(project_file()))) return false;
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
bool EditorForm::FitsTheReader(const IniText& now) {
  IniEdit trial(now);
  Write(trial);
  const std::vector<std::string> too_long = trial.TooLong();
  if (too_long.empty()) return true;
  context_.questions.Box(too_long.front() + " and can't be saved.", true);
  return false;
}

void EditorForm::Ok() {
  if (context_.state.data_changed && !SaveFile()) return;
  Close();
}

void EditorForm::Cancel() {
  if (context_.state.data_changed && context_.questions.Ask(kDataWasChanged) && !SaveFile()) return;
  Close();
}

void EditorForm::Close() {
  closed_ = true;
  if (on_closed) on_closed();
}

}  // namespace tarvok::editing
