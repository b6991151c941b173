#pragma once

#include <array>
#include <string>
#include <vector>

#include <QAction>
#include <QActionGroup>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>

#include "desktop/overview/overview_pane.h"
#include "desktop/overview/start_pane.h"
#include "desktop/transfer/practice_process.h"
#include "desktop/uses.h"
#include "desktop/window/command_tree.h"
#include "desktop/window/desktop_parts.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/find_dialog.h"
#include "desktop/window/pane_form.h"
#include "frame/main_frame.h"
#include "project/places.h"

namespace tarvok::desktop {

/** `MDIForm1`: the main window. It shows what the rules of the main frame say, and passes clicks on to
 * them. */
class MainWindow : public QMainWindow, public MainFrameView, public PaneHost {
 public:
  explicit MainWindow(DesktopParts& parts);

  /** Sets the rules; call once, before the window is shown. They must outlive the window's last event. */
  void Attach(MainFrame& frame) { frame_ = &frame; }

  void Show(const FrameLook& look) override;
  void ShowRecentFiles(const std::vector<std::string>& paths) override;
  void Highlight(int node, bool on) override {
    tree_->Highlight(node, on);
    if (on) tree_->SetCurrent(node);
  }
  void SetBusyPointer(bool busy) override;
  void CriticalBox(std::string_view text) override;
  bool Ask(std::string_view question) override;
  std::string ChooseNewFile() override;
  std::string ChooseExistingFile() override;
  void EndProgram() override;

  void ShowInPane(QWidget* widget) override;
  void RemoveFromPane(QWidget* widget) override;
  bool GoTo(const Place& place) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MakeActions();
  void MakeMenus();
  void MakeViewMenu();
  void MakeToolBar();
  void MakeStatusBar();
  void MakePanes();
  void MakeOverview();
  QAction* MakeChoice(QActionGroup* group, const QString& text, std::string_view key, std::string_view value,
                      bool checked);
  QAction* MakeAction(const QString& name, const QString& text, const QList<QKeySequence>& keys,
                      const QIcon& icon, void (MainWindow::*run)());
  void New();
  void Open() { frame_->Open(); }
  void CloseProject() { frame_->Close(); }
  void Exit() { frame_->ExitProgram(); }
  void Help();
  void FocusTree() { tree_->setFocus(Qt::ShortcutFocusReason); }
  void SwitchSides();
  void OpenTransfer();
  void Find();
  void EarlierVersions();
  void SaveAs();
  void Duplicate();
  void CompareWith();
  void About();
  /** Saves and closes the open form, if there is one. False if it stays open. */
  bool LeaveForm();
  /** The command whose form shows the place; nullptr if none does. */
  const Command* CommandFor(const Place& place) const { return frame_->FindCommand(CommandOf(place)); }
  void ShowPractice();
  void UsePractice();
  void ConnectToPractice();
  /** Takes the widget of the closed form out of the pane, once another one is shown. */
  void DropClosed();
  void RestoreLayout();
  void KeepLayout();

  DesktopParts& parts_;
  MainFrame* frame_ = nullptr;
  FileDialogs dialogs_;
  QAction* new_ = nullptr;
  QAction* open_ = nullptr;
  QAction* close_ = nullptr;
  QAction* exit_ = nullptr;
  QAction* versions_ = nullptr;
  QAction* find_action_ = nullptr;
  QAction* save_as_ = nullptr;
  QAction* duplicate_ = nullptr;
  QAction* compare_ = nullptr;
  QAction* about_ = nullptr;
  QAction* help_ = nullptr;
  QAction* letters_ = nullptr;  // the menu of code pages
  std::array<QAction*, RecentFiles::kCount> recent_{};
  QAction* dash3_ = nullptr;
  QMenu* table_menu_ = nullptr;  // has the actions of the form in the pane
  QSplitter* splitter_ = nullptr;
  CommandTree* tree_ = nullptr;
  QStackedWidget* pane_ = nullptr;
  QPointer<QWidget> closed_;  // of a closed form; stays visible until another one is shown
  QWidget to_delete_;         // never shown; parent of widgets that will be deleted
  StartPane* start_ = nullptr;
  OverviewPane* overview_ = nullptr;  // created for the first project
  FindDialog* find_ = nullptr;        // created when it is first needed
  PracticeProcess practice_;
  bool wants_practice_ = false;  // connect the open project to it as soon as it is ready
  std::string new_file_;         // chosen last
  bool ending_ = false;
  bool busy_ = false;
};

}  // namespace tarvok::desktop
