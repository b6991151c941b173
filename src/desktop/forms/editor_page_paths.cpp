// Where a row of an editor leads to: what refers to it, and the way of a call.

#include "desktop/forms/editor_page.h"
#include "desktop/forms/used_by_dialog.h"
#include "editors/used_by.h"

namespace tarvok::desktop {
namespace {

/** The forms whose rows are a step of a call's way. */
struct Way {
  std::string_view form;
  PathNode (*path)(const IniText& project, int row);
};
constexpr Way kWays[] = {
    {"frmRouteMap", WayOut}, {"frmPortSys_Def", WayInOfPort}, {"frmDIDRedirect", WayInOfDid}};

const Way* WayOf(std::string_view form) {
  for (const Way& way : kWays) {
    if (way.form == form) return &way;
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
  if (WayOf(form_->name().form) == nullptr) return;
  path_ = new CallPathView(PageOf(parts_.settings), [this](const Place& place) { Jump(place); });
}

/** The way of the row that is current, as the project on the disk says; a row that was not saved has none. */
void EditorPage::ShowCallPath() {
  if (path_ == nullptr || form_->table()->rows() == 0) return;
  const int current = form_->table()->current_row();
  const int row = form_->table()->InSight(current) ? form_->table()->row(current).origin : 0;
  const std::shared_ptr<const IniText> project = parts_.store.Snapshot(parts_.state.project_file);
  if (row == path_row_ && project == path_project_) return;
  path_row_ = row;
  path_project_ = project;
  path_->ShowPath(row > 0 ? WayOf(form_->name().form)->path(*project, row) : PathNode());
}

}  // namespace tarvok::desktop
