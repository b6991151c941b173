#pragma once

#include <functional>
#include <memory>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QWidget>

#include "desktop/forms/call_path_view.h"
#include "desktop/forms/form_view.h"
#include "desktop/forms/table_model.h"
#include "desktop/forms/table_view.h"
#include "desktop/forms/window_questions.h"
#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "desktop/window/pane_form.h"
#include "editors/editors.h"

namespace tarvok::desktop {

/** An editor in the pane: its form and, for a table, the tools around it. */
class EditorPage : public QWidget {
 public:
  EditorPage(DesktopParts& parts, const Editor& editor, const FormContext& frame, PaneHost& host);
  ~EditorPage() override;

  EditorForm& form() { return *form_; }
  /** Passes what is still being typed to the form. */
  void Commit();
  void GoTo(const Place& place);
  /** Call when the form is closed: cancels postponed work. */
  void GiveUp() { put_off_.reset(); }

 private:
  void MakeForm(const Editor& editor, const FormContext& frame);
  QWidget* MakeTable();
  QWidget* MakeToolRow();
  void MakeTableActions();
  void AddSeparator();
  QAction* AddMenuEntry(std::string_view control, const QString& text, const QList<QKeySequence>& keys);
  QAction* AddAction(const QString& name, const QString& text, const QList<QKeySequence>& keys,
                     std::function<void()> run);
  void Acted();
  void RefreshTable();
  void ShowNote();
  void ShowRowCount();
  void TakeClipboard();
  void FindAndReplace();
  std::string ColumnsText(const std::vector<int>& columns) const;
  void ImportFile();
  void ExportFile();
  void ClickControl(std::string_view control);
  void ShowUsedBy();
  void MakeCallPath();
  void ShowCallPath();
  /** Goes to a place after the current event, since that closes this form. */
  void Jump(const Place& place);
  /** Runs `work` after the current event, unless the form is closed by then. */
  void PutOff(std::function<void()> work);

  DesktopParts& parts_;
  PaneHost& host_;
  std::unique_ptr<QObject> put_off_ = std::make_unique<QObject>();
  WindowQuestions questions_;
  std::unique_ptr<EditorForm> form_;
  TableModel* model_ = nullptr;
  TableView* table_ = nullptr;
  FormView* view_ = nullptr;
  QLineEdit* filter_ = nullptr;
  QLabel* row_count_ = nullptr;
  QLabel* note_ = nullptr;
  QString lacking_;               // letters of the last paste that the code page lacks
  CallPathView* path_ = nullptr;  // only in forms whose rows are steps in the path of a call
  int path_row_ = -1;
  std::shared_ptr<const IniText> path_project_;  // that path_ shows, with the changes of the form
  QLabel* changed_ = nullptr;
};

/** The command of an editor. The arguments must outlive it. */
Command EditorCommand(DesktopParts& parts, const Editor& editor, PaneHost& host);

}  // namespace tarvok::desktop
