#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/command.h"
#include "frame/main_frame_view.h"
#include "frame/uses.h"
#include "store/project_store.h"
#include "store/recent_files.h"

namespace tarvok::frame {

inline constexpr std::string_view kFrameTitle = " --= Tarvok Setup 2.36 =-- ";
inline constexpr std::string_view kBoxTitle = "Tarvok Setup";
inline constexpr std::string_view kAlreadyLoaded = "Program already load !!!";
inline constexpr std::string_view kProjectExtension = ".tvk";
inline constexpr std::string_view kProjectFiles = "PBX Config File (*.tvk)";

/** The path as the user typed it, plus the project's extension if it has none. */
std::string WithProjectExtension(const std::string& path);

/**
 * The rules of the main frame: at most one project is open and at most one form is shown. Opening a form
 * closes the previous one, which saves its changes without asking. The program supplies the commands and
 * their forms.
 */
class MainFrame {
 public:
  struct Parts {
    ProjectStore& store;
    RecentFiles& recent;
    SharedState& state;
    MainFrameView& view;
    std::string system_file;
    std::vector<Command> commands;  // in the order of the tree
  };

  explicit MainFrame(Parts parts) : parts_(std::move(parts)) {}
  ~MainFrame();
  MainFrame(const MainFrame&) = delete;
  MainFrame& operator=(const MainFrame&) = delete;

  /** Warns if another instance is running, and starts anyway. */
  void Start(bool another_instance);
  void New();
  void Open();
  /** Opens entry k of the recent files, from 1. The only way to switch projects while one is open. */
  void OpenRecent(int k);
  /** Returns false and changes nothing if the file has no valid tag. */
  bool OpenProject(const std::string& path);
  /** `mnu_close` and CloseProject. False if the open form cannot be closed. */
  bool Close();
  /** `mnu_exit`. */
  void ExitProgram();
  /**
   * Must be called before the window closes for any reason; saves changes. False if the program cannot end
   * yet. An idle modal form is closed first, and the program then ends by itself.
   */
  bool MayEnd();
  void ClickNode(int node);
  /** Opens the command's form like a click on its node, unless it is open already, and shows the place in it.
   * False if the form could not be opened. */
  bool GoTo(std::string_view command_key, const Place& place);
  /** Saves and unloads the open form if it has that name (ignoring blanks around it and case) and is one of
   * the 32 that close by name; any other name does nothing. False if that form stays open. */
  bool CloseActiveForm(std::string_view name);

  const std::vector<Command>& commands() const { return parts_.commands; }
  /** nullptr if there is no command with this key. */
  const Command* FindCommand(std::string_view key) const { return CommandOfNode(NodeOf(key)); }
  /** 0 if there is no command with this key. */
  int NodeOf(std::string_view key) const;
  const SharedState& state() const { return parts_.state; }

 private:
  class Running;

  /** The command of a tree node; nullptr for the root and for a node that does not exist. */
  const Command* CommandOfNode(int node) const;
  void RunCommand(int node);
  /** False if the open form cannot be closed or the project file is gone. */
  bool OpenForm(const Command& command);
  void ShowForm(const Command& command);
  bool CloseOpenForm();
  /** CloseActiveForm without updating the view. */
  bool LeaveForm(std::string_view name);
  void FormClosed();
  void DropForm();
  void ShowLook(bool has_editor = false);

  Parts parts_;
  std::unique_ptr<Form> form_;
  bool running_ = false;  // a command is running; further clicks are ignored
  bool modal_ = false;    // the open form is modal and shown
  bool ends_ = false;     // the program ends once the modal form is closed
};

}  // namespace tarvok::frame
