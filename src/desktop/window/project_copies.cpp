#include "desktop/window/project_copies.h"

#include "desktop/look/shown_text.h"
#include "desktop/window/boxes.h"
#include "desktop/window/difference_list.h"
#include "desktop/window/file_dialogs.h"
#include "frame/main_frame.h"
#include "store/header_keys.h"
#include "store/new_project.h"
#include "store/project_there.h"
#include "store/whole_write.h"

namespace tarvok::desktop {
namespace {

constexpr std::string_view kBeforeCopy = "Before a copy of another project took its place";

void ShowProblem(DesktopParts& parts, QWidget* parent, std::string_view text) {
  ShowBox(parent, QMessageBox::Critical, MessageText(text, PageOf(parts.settings)));
}

/** The name of the file without its folder. */
std::string FileName(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

}  // namespace

std::optional<std::string> CopyProject(DesktopParts& parts, const QString& title, QWidget* parent) {
  const std::string& project = parts.state.project_file;
  if (const std::string problem = WhyNoProject(parts.store, project); !problem.empty()) {
    ShowProblem(parts, parent, problem);
    return {};
  }
  FileSystem& files = parts.store.files();
  const std::string path = WithProjectExtension(FileDialogs(parts.settings).ChooseNewFile(parent, title));
  if (path.empty()) return {};
  if (IsSameFile(files, path, project)) {
    ShowBox(parent, QMessageBox::Information,
            QStringLiteral("This is the open project. Choose another name for the copy."));
    return {};
  }
  if (files.Identify(path).exists) {
    if (!AskYesNo(parent, Words(kFileExists), {.enter = QMessageBox::No})) return {};
    parts.keep(path, kBeforeCopy);
  }
  const Status written = WriteWhole(files, path, parts.store.Snapshot(project)->bytes());
  if (!written.ok()) {
    ShowProblem(parts, parent, written.message());
    return {};
  }
  return path;
}

void CompareWithProject(DesktopParts& parts, QWidget* parent) {
  const std::string path =
      FileDialogs(parts.settings).ChooseExistingFile(parent, QStringLiteral("Compare With Project"));
  if (path.empty()) return;
  const std::shared_ptr<const IniText> other = parts.store.Snapshot(path);
  if (!IsProject(*other)) return ShowProblem(parts, parent, kNotAProject);
  const std::string first = FileName(path);
  const std::string second = FileName(parts.state.project_file);
  auto* list = new DifferenceList(
      PageOf(parts.settings),
      first == second ? SideNames{"other project", "open project"} : SideNames{first, second},
      QStringLiteral(
          "No form shows a difference: the files are equal or differ only in blanks, comments or order."));
  list->ShowDifferences(CompareProjects(*other, *parts.store.Snapshot(parts.state.project_file)));
  ShowInDialog(list, QStringLiteral("CompareWith"), QStringLiteral("Compare With Project"), parent);
}

}  // namespace tarvok::desktop
