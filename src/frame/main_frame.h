#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "frame/main_frame_view.h"
#include "frame/uses.h"
#include "project/commands.h"
#include "store/project_store.h"
#include "store/recent_files.h"

namespace tarvok::frame {

inline constexpr std::string_view kFrameTitle = " --= Tarvok Setup 2.36 =-- ";
inline constexpr std::string_view kBoxTitle = "Tarvok Setup";
inline constexpr std::string_view kAlreadyLoaded = "Program already load !!!";
inline constexpr std::string_view kProjectExtension = ".tvk";
inline constexpr std::string_view kProjectFiles = "PBX Config File (*.tvk)";

/** The name as a person typed it, with the project's extension behind one that has none. */
std::string WithProjectExtension(const std::string& path);

/**
 * The main frame's rules: at most one project is open and at most one form is shown; opening a form closes the
 * one before and has it save its changes without a question. Which forms there are is the program's matter: a
 * command without a factory is shown, and does nothing.
 */
class MainFrame {
 public:
  struct Parts {
    ProjectStore& store;
    RecentFiles& recent;
    SharedState& state;
    MainFrameView& view;
    std::string system_file;
    std::map<std::string_view, FormFactory> forms;  // by command key
  };

  explicit MainFrame(Parts parts) : parts_(std::move(parts)) {}
  ~MainFrame();
  MainFrame(const MainFrame&) = delete;
  MainFrame& operator=(const MainFrame&) = delete;

  /** Another instance is told of and changes nothing. */
  void Start(bool another_instance);
  void New();
  void Open();
  /** Entry k of the recent files, from 1. The one way to change projects while one is open. */
  void OpenRecent(int k);
  /** False, and everything as it was, if the file has no valid tag. */
  bool OpenProject(const std::string& path);
  /** `mnu_close` and CloseProject. False if the open form does not let itself be closed. */
  bool Close();
  /** `mnu_exit`. */
  void ExitProgram();
  /**
   * Called before the window closes for any reason; changes are saved. False if the program cannot end yet. A modal form
   * that is idle closes first, and the program ends by itself right after.
   */
  bool MayEnd();
  void ClickNode(int node);
  /** Opens the command's form as a click on its node does, or finds it open, and has it show the place. False
   * if the form does not come up. */
  bool GoTo(std::string_view command_key, const Place& place);
  /** Saves and unloads the open form if it has that name, blanks and case aside, and is one of the 32 that
   * close by name; any other name does nothing. False if that form stays open. */
  bool CloseActiveForm(std::string_view name);

  bool IsOffered(const Command& command) const { return parts_.forms.contains(command.key); }
  const SharedState& state() const { return parts_.state; }

 private:
  class Running;

  void RunCommand(int node);
  /** False if a form that is open did not give way, or the project's file did not stay. */
  bool OpenForm(const Command& command);
  void ShowForm(const Command& command);
  bool CloseOpenForm();
  /** CloseActiveForm up to what is shown then. */
  bool LeaveForm(std::string_view name);
  void FormClosed();
  void DropForm();
  void ShowLook(bool has_editor = false);

  Parts parts_;
  std::unique_ptr<Form> form_;
  bool running_ = false;  // a command is at work; a second click in its middle is dropped
  bool modal_ = false;    // the open form is modal and shown
  bool ends_ = false;     // the program was asked to end, and does once the modal form is closed
};

}  // namespace tarvok::frame
