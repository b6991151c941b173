#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "editing/form_controls.h"
#include "editing/questions.h"
#include "editing/uses.h"
#include "store/ini_edit.h"
#include "store/project_store.h"
#include "store/shared_state.h"

namespace tarvok::editing {

inline constexpr std::string_view kErrorFileName = "Error File Name";
inline constexpr std::string_view kDataWasChanged =
    "Data was change if you closed this windows data may be lost. \nDo you want to save?";
inline constexpr std::string_view kDoYouWantToDelete = "Do you want to delete?";
inline constexpr std::string_view kOverLimit = "Over limit data you cannot add. ";

/** What an editor is called: by the code, by the frame while it is open, and by people. */
struct FormName {
  std::string_view form;
  std::string_view recorded;
  std::string_view title;
};

/** What an editor works with. */
struct EditorContext {
  ProjectStore& store;
  SharedState& state;
  Questions& questions;
  std::string system_file;
  /** Keeps the project as it is, before a save changes it; the reason is for people. */
  std::function<void(std::string_view reason)> keep;
  /** Ends the program: what some editors do that find no project open. */
  std::function<void()> end_program;
};

/**
 * An editor of the command tree: its rules over a project, without a window. It loads from the project,
 * changes its controls, and writes back in one write.
 */
class EditorForm : public FormControls {
 public:
  EditorForm(EditorContext context, FormName name);

  const FormName& name() const { return name_; }
  std::string_view title() const override { return name_.title; }

  /** Fills the form from the project; once, behind the constructor. */
  void Open();
  /** Shows a row, as its keys count, and a field of it, from 1 (0: the row), of a section that the form edits;
   * false if the form shows no such place. */
  virtual bool ShowPlace(std::string_view /*section*/, int /*row*/, int /*field*/) { return false; }
  /** Writes the form. False where the user or a failure keeps it from it: the form stays. */
  bool SaveFile();
  /** `cmdOK` or `cmdCancel` have ended the form; `on_closed` was told and may have destroyed it. */
  bool closed() const { return closed_; }
  std::function<void()> on_closed;
  /** The last save was given up, by the user, a check or a failure. */
  bool save_refused() const { return save_refused_; }

 protected:
  /** Fills the controls. Nothing that it does marks a change. */
  virtual void Load(const IniText& project) = 0;
  /** The editor's own checks; may ask. False gives the save up. */
  virtual bool MaySave() { return true; }
  /** Puts the form in the order in which it is written. */
  virtual void BeforeWrite() {}
  /** Writes into the project as it is now. It may run more than once for one save. */
  virtual void Write(IniEdit& project) = 0;
  /** Behind a good save. */
  virtual void Saved() {}
  /** Whether a save without an open project ends the program. */
  virtual bool EndsWithoutProject() const { return false; }

  void MarkChanged() override;
  /** The form itself has just written to the project: that is no change by others. */
  void NoteOwnWrite() { loaded_ = context_.store.Snapshot(project_file()); }
  /** The two buttons at a form's end. */
  FormLayout OkAndCancel();
  const std::string& project_file() const { return context_.state.project_file; }
  EditorContext& context() { return context_; }

 private:
  void Ok();
  void Cancel();
  void Close();
  bool Save();
  bool ProjectIsThere();
  bool OthersLeftItAlone();
  bool FitsTheReader(const IniText& now);

  EditorContext context_;
  FormName name_;
  Control& ok_;
  Control& cancel_;
  std::shared_ptr<const IniText> loaded_;
  bool closed_ = false;
  bool save_refused_ = false;
};

}  // namespace tarvok::editing
