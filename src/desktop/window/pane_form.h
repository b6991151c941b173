#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QPointer>
#include <QWidget>

#include "desktop/uses.h"
#include "frame/main_frame_view.h"

namespace tarvok::desktop {

/** Where a child form shows itself: the pane beside the tree. */
class PaneHost {
 public:
  virtual ~PaneHost() = default;
  /** The pane shows this widget, and owns it. */
  virtual void ShowInPane(QWidget* widget) = 0;
  /** The widget goes as soon as the pane shows another, and dies behind the paint of that, and so behind the event that
   * closed its form: a button of its own may do that. */
  virtual void RemoveFromPane(QWidget* widget) = 0;
  /** Opens the form that edits a place of the project and shows it there; the form in the pane is saved and
   * goes. False if none does, or if the form in the pane stays. */
  virtual bool GoTo(const Place& place) = 0;
};

/** A child form made of a widget. */
class PaneForm : public Form {
 public:
  PaneForm(PaneHost& host, std::string name, QWidget* widget)
      : host_(host), name_(std::move(name)), widget_(widget) {}
  ~PaneForm() override {
    if (widget_ != nullptr) host_.RemoveFromPane(widget_);
  }
  PaneForm(const PaneForm&) = delete;
  PaneForm& operator=(const PaneForm&) = delete;

  std::string_view name() const override { return name_; }
  void Show() override { host_.ShowInPane(widget_); }
  /** A form that only shows has nothing to save. */
  bool SaveFile() override { return true; }
  bool Unload() override { return true; }

 private:
  PaneHost& host_;
  std::string name_;
  QPointer<QWidget> widget_;
};

/** `frmAbout`, with a line that says which system file is in use. */
std::unique_ptr<Form> MakeAboutForm(PaneHost& host, const FormContext& context,
                                    const std::string& system_file_line);

}  // namespace tarvok::desktop
