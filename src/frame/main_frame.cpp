#include "frame/main_frame.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "store/header_keys.h"
#include "store/new_project.h"
#include "store/number_text.h"
#include "store/project_there.h"

namespace tarvok::frame {

/** Held while a command runs. Boxes and modal forms process events, so another click may come in. */
class MainFrame::Running {
 public:
  explicit Running(bool& flag) : flag_(flag), first_(!std::exchange(flag, true)) {}
  ~Running() {
    if (first_) flag_ = false;
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  bool first() const { return first_; }

 private:
  bool& flag_;
  bool first_;
};

std::string WithProjectExtension(const std::string& path) {
  if (path.empty() || std::filesystem::path(path).has_extension()) return path;
  return path + std::string(kProjectExtension);
}

MainFrame::~MainFrame() = default;

void MainFrame::Start(bool another_instance) {
  if (another_instance) parts_.view.CriticalBox(kAlreadyLoaded);
  parts_.state.InitGlobals();
  ShowLook();
  parts_.recent.LoadRecentFiles();
  parts_.view.ShowRecentFiles(parts_.recent.ShowRecentFiles());
}

void MainFrame::New() {
  const Running running(running_);
  if (!running.first() || !parts_.state.project_file.empty()) return;
  const std::string path = WithProjectExtension(parts_.view.ChooseNewFile());
  if (path.empty()) return;
  if (parts_.store.files().Identify(path).exists && !parts_.view.Ask(kFileExists)) return;
  parts_.state.project_file = path;
  const Status made = NewDefault(parts_.store, parts_.system_file, path);
  if (!made.ok()) {
    parts_.state.project_file.clear();
    parts_.view.CriticalBox(made.message());
    return;
  }
  if (!OpenProject(path)) parts_.state.project_file.clear();
}

void MainFrame::Open() {
  const Running running(running_);
  if (!running.first() || !parts_.state.project_file.empty()) return;
  const std::string path = parts_.view.ChooseExistingFile();
  if (!path.empty()) OpenProject(path);
}

void MainFrame::OpenRecent(int k) {
  const std::vector<std::string> paths = parts_.recent.ShowRecentFiles();
  if (running_ || k < 1 || k > static_cast<int>(paths.size())) return;
  const std::string& path = paths[static_cast<std::size_t>(k) - 1];
  if (path == parts_.state.project_file) {
    parts_.recent.AddRecentFile(path);
    parts_.view.ShowRecentFiles(parts_.recent.ShowRecentFiles());
  } else if (Close()) {
    OpenProject(path);
  }
}

bool MainFrame::OpenProject(const std::string& path) {
  if (!IsProject(*parts_.store.Snapshot(path))) {
    parts_.view.CriticalBox(kNotAProject);
    return false;
  }
  parts_.state.project_file = path;
  ShowLook();
  parts_.recent.AddRecentFile(path);
  parts_.view.ShowRecentFiles(parts_.recent.ShowRecentFiles());
  return true;
}

bool MainFrame::Close() {
  const Running running(running_);
  if (!running.first() || !CloseOpenForm()) return false;
  parts_.state.project_file.clear();
  parts_.state.previous_node = 0;
  ShowLook();
  return true;
}

bool MainFrame::MayEnd() {
  const Running running(running_);
  if (running.first()) return CloseOpenForm();
  if (modal_ && form_->Unload()) ends_ = true;
  return false;
}

void MainFrame::ExitProgram() {
  if (MayEnd()) parts_.view.EndProgram();
}

/** A form that cannot be closed by name keeps the program open until it closes by itself. */
bool MainFrame::CloseOpenForm() {
  return CloseActiveForm(std::string(parts_.state.active_form_name)) && form_ == nullptr;
}

bool MainFrame::CloseActiveForm(std::string_view name) {
  const bool was_open = form_ != nullptr;
  const bool gives_way = LeaveForm(name);
  if (was_open && form_ == nullptr) ShowLook();
  return gives_way;
}

bool MainFrame::LeaveForm(std::string_view name) {
  const std::string_view wanted = Trim(name);
  for (const Command& command : parts_.commands) {
    if (!command.closed_by_name || !SameName(command.recorded, wanted)) continue;
    if (form_ == nullptr || !SameName(form_->name(), wanted)) return true;
    if (command.saved_on_close && parts_.state.data_changed) {
      if (!form_->SaveFile()) return false;
      if (parts_.state.previous_node != 0) parts_.view.Highlight(parts_.state.previous_node, false);
    }
    // A modal form is destroyed once its Show returns; until then it may still be waiting for something.
    if (!form_->Unload() || command.mode == ShowMode::kModal) return false;
    DropForm();
    return true;
  }
  return true;
}

int MainFrame::NodeOf(std::string_view key) const {
  const auto found = std::ranges::find(parts_.commands, key, &Command::key);
  const auto index = static_cast<int>(found - parts_.commands.begin());
  return found == parts_.commands.end() ? 0 : index + kFirstCommandNode;
}

const Command* MainFrame::CommandOfNode(int node) const {
  const int index = node - kFirstCommandNode;
  const bool exists = index >= 0 && index < static_cast<int>(parts_.commands.size());
  return exists ? &parts_.commands[static_cast<std::size_t>(index)] : nullptr;
}

void MainFrame::ClickNode(int node) {
  RunCommand(node);
  if (std::exchange(ends_, false)) ExitProgram();
}

void MainFrame::RunCommand(int node) {
  const Running running(running_);
  const Command* command = CommandOfNode(node);
  SharedState& state = parts_.state;
  if (!running.first() || state.project_file.empty() || command == nullptr) return;
  parts_.view.SetBusyPointer(true);
  state.clicked_node = node;
  if (state.previous_node != 0) parts_.view.Highlight(state.previous_node, false);
  const std::string missing = command->needs_system_file
                                  ? ReadSystemFile(parts_.store, parts_.system_file).status().message()
                                  : std::string();
  if (!missing.empty()) {
    parts_.view.CriticalBox(missing);
  } else if (OpenForm(*command)) {
    if (command->keeps_highlight && form_ != nullptr) parts_.view.Highlight(node, true);
  } else {
    // The click had no effect: the previous form is still open.
    const Command* open = CommandOfNode(state.previous_node);
    if (form_ != nullptr && open != nullptr && open->keeps_highlight)
      parts_.view.Highlight(state.previous_node, true);
    parts_.view.SetBusyPointer(false);
    return;
  }
  state.previous_node = state.clicked_node;
  parts_.view.SetBusyPointer(false);
}

bool MainFrame::GoTo(std::string_view command_key, const Place& place) {
  const Command* command = FindCommand(command_key);
  if (command == nullptr) return false;
  ClickNode(NodeOf(command_key));
  if (form_ == nullptr || !SameName(form_->name(), command->recorded)) return false;
  form_->GoTo(place);
  return true;
}

bool MainFrame::OpenForm(const Command& command) {
  const std::string active = parts_.state.active_form_name;
  if (active == command.CompareName()) return true;
  const std::string problem =
      command.needs_project ? WhyNoProject(parts_.store, parts_.state.project_file) : std::string();
  if (!problem.empty()) {
    parts_.view.CriticalBox(problem);
    return false;
  }
  // A modal form is shown over the empty frame, while an editor replaces the previous one without a redraw.
  const bool over = command.mode == ShowMode::kModal;
  if (!active.empty() && !(over ? CloseActiveForm(active) : LeaveForm(active))) return false;
  ShowForm(command);
  return true;
}

void MainFrame::ShowForm(const Command& command) {
  SharedState& state = parts_.state;
  state.form_loading = true;
  form_ = command.make({.state = state,
                        .closed = [this] { FormClosed(); },
                        .close_project = [this] { Close(); },
                        .exit_program = [this] { ExitProgram(); }});
  state.form_loading = false;
  if (form_ == nullptr) {
    ShowLook();
    return;
  }
  state.active_form_name = form_->name();
  parts_.view.SetBusyPointer(false);  // busy only while a form loads, not while a modal form runs
  if (command.mode == ShowMode::kModal) {
    modal_ = true;
    form_->Show();
    modal_ = false;
    DropForm();
    ShowLook();
  } else {
    ShowLook(true);
    form_->Show();
  }
}

void MainFrame::FormClosed() {
  if (parts_.state.previous_node != 0) parts_.view.Highlight(parts_.state.previous_node, false);
  DropForm();
  ShowLook();
}

void MainFrame::DropForm() {
  const std::unique_ptr<Form> closed = std::move(form_);
  parts_.state.active_form_name.clear();
  parts_.state.data_changed = false;
}

void MainFrame::ShowLook(bool has_editor) {
  const SharedState& state = parts_.state;
  const bool open = !state.project_file.empty();
  const std::string title(kFrameTitle);
  parts_.view.Show({.title = open ? state.project_file + " :: " + title : title,
                    .has_commands = open,
                    .can_open = !open,
                    .can_close = open,
                    .has_editor = has_editor});
}

}  // namespace tarvok::frame
