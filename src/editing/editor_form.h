#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

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

/** The names of an editor. */
struct FormName {
  std::string_view form;
  std::string_view title;
  std::string_view recorded_as = {};  // where it is not the form's

  /** The frame's `ActiveFormName`. */
  constexpr std::string_view recorded() const { return recorded_as.empty() ? form : recorded_as; }
};

/** A reference that a save clears, because the row that it names is removed. */
struct ClearedReference {
  std::string row;    // the removed one: "Number 001 (100)"
  std::string place;  // "Port 012 (card 3, channel 4), Number"
  // Where it was, to see if the save fills it again; field 0 is a member that leaves a list.
  std::string section, key;
  int field;
};

/** What an editor works with. */
struct EditorContext {
  ProjectStore& store;
  SharedState& state;
  Questions& questions;
  std::string system_file;
  /** Keeps a copy of the project before a save changes it; the reason is shown to the user. */
  std::function<void(std::string_view reason)> keep;
  /** Ends the program; some editors do this if no project is open. */
  std::function<void()> end_program;
};

/**
 * An editor of the command tree without its window. It loads its controls from the project and saves them in
 * one write.
 */
class EditorForm : public FormControls {
 public:
  EditorForm(EditorContext context, FormName name);

  const FormName& name() const { return name_; }
  std::string_view title() const override { return name_.title; }

  /** Fills the form from the project. Must be called once, after construction. */
  void Open();
  /** Shows a place of a section that the form edits: a row, numbered like its key, and a field, from 1 (0:
   * the whole row). False if the form has no such place. */
  virtual bool ShowPlace(std::string_view /*section*/, int /*row*/, int /*field*/) { return false; }
  /** Saves the form. False if the user refuses or saving fails; the form then stays open. */
  bool SaveFile();
  /** The project as a save would write it now, in the present order of the rows. */
  std::shared_ptr<const IniText> AsEdited();
  /** True once `cmdOK` or `cmdCancel` has closed the form. `on_closed` is then called and may destroy it. */
  bool closed() const { return closed_; }
  std::function<void()> on_closed;
  /** True if the user, a check or a failure stopped the last save. */
  bool save_refused() const { return save_refused_; }

 protected:
  /** Fills the controls. Does not count as a change. */
  virtual void Load(const IniText& project) = 0;
  /** The editor's own checks; may ask the user. False cancels the save. */
  virtual bool MaySave() { return true; }
  /** Puts the rows in the order in which they are saved. */
  virtual void BeforeWrite() {}
  /** Writes the form into the current project. May be called more than once for one save. */
  virtual void Write(IniEdit& project) = 0;
  /** Called after a successful save. */
  virtual void Saved() {}
  /** True if a save without an open project ends the program. */
  virtual bool EndsWithoutProject() const { return false; }

  /** Call for the references that `Write` clears: if they are still not set at its end, the user is asked
   * before the save. */
  void WillClear(std::vector<ClearedReference> references);

  void MarkChanged() override;
  /** Call after the form itself has written to the project, so that this does not count as a change by
   * others. */
  void NoteOwnWrite() { loaded_ = context_.store.Snapshot(project_file()); }
  /** The Save and Cancel buttons. */
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
  bool FitsTheReader(const IniEdit& trial);
  bool MayClear(const IniEdit& trial);

  EditorContext context_;
  FormName name_;
  Control& ok_;
  Control& cancel_;
  std::shared_ptr<const IniText> loaded_;
  std::vector<ClearedReference> cleared_;  // by the last Write
  bool closed_ = false;
  bool save_refused_ = false;
};

}  // namespace tarvok::editing
