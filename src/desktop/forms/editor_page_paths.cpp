// Links of an editor's row: what refers to it, and the path of a call.

#include "desktop/forms/editor_page.h"
#include "desktop/forms/used_by_dialog.h"
#include "editors/used_by.h"

namespace tarvok::desktop {
namespace {

/** The forms whose rows are steps in the path of a call. */
struct PathForm {
  std::string_view form;
  PathNode (*path)(const IniText& project, int row);
};
constexpr PathForm kPathForms[] = {
    {"frmRouteMap", WayOut}, {"frmPortSys_Def", WayInOfPort}, {"frmDIDRedirect", WayInOfDid}};

const PathForm* PathFormOf(std::string_view form) {
  for (const PathForm& one : kPathForms) {
    if (one.form == form) return &one;
  }
  return nullptr;
}

}  // namespace

void EditorPage::Jump(const Place& place) {
  PutOff([&host = host_, place] { host.GoTo(place); });
}

void EditorPage::ShowUsedBy() {
  auto* form = dynamic_cast<FieldTableEditor*>(form_.get());
  if (form == nullptr) return;
  const int row = form->table()->current_row();
  if (!form->table()->InSight(row)) return;
  UsedByDialog dialog(UsedBy(*parts_.store.Snapshot(parts_.state.project_file), *form, row), row,
                      PageOf(parts_.settings), this);
  if (dialog.exec() == QDialog::Accepted) Jump(dialog.place());
}

void EditorPage::MakeCallPath() {
  if (PathFormOf(form_->name().form) == nullptr) return;
  path_ = new CallPathView(PageOf(parts_.settings), [this](const Place& place) { Jump(place); });
}

/** Shows the path of the current row. */
void EditorPage::ShowCallPath() {
  if (path_ == nullptr || form_->table()->rows() == 0) return;
  const int current = form_->table()->current_row();
  const bool edited = parts_.state.data_changed && path_project_ != nullptr;
  const int number = edited ? current : form_->table()->row(current).origin;
  const int row = form_->table()->InSight(current) ? number : 0;
  const std::shared_ptr<const IniText> project =
      edited ? path_project_ : parts_.store.Snapshot(parts_.state.project_file);
  if (row == path_row_ && project == path_project_) return;
  path_row_ = row;
  path_project_ = project;
  path_->ShowPath(row > 0 ? PathFormOf(form_->name().form)->path(*project, row) : PathNode());
}

}  // namespace tarvok::desktop
