#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QPointer>
#include <QWidget>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"
#include "frame/command.h"

namespace tarvok::desktop {

/** The pane next to the tree, where child forms are shown. */
class PaneHost {
 public:
  virtual ~PaneHost() = default;
  /** Shows the widget in the pane, which takes ownership. */
  virtual void ShowInPane(QWidget* widget) = 0;
  /** Removes the widget as soon as the pane shows another one, and deletes it after that one was painted. A
   * form may thus be closed from an event of its own widget, such as a click on its button. */
  virtual void RemoveFromPane(QWidget* widget) = 0;
  /** Saves and closes the form in the pane, opens the form that edits the place, and shows it there. False if
   * no form edits it, or if the form in the pane can't be closed. */
  virtual bool GoTo(const Place& place) = 0;
};

/** A child form that consists of a widget. */
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
  /** A form without input has nothing to save. */
  bool SaveFile() override { return true; }
  bool Unload() override { return true; }

 private:
  PaneHost& host_;
  std::string name_;
  QPointer<QWidget> widget_;
};

/** `frmAbout`, whose button calls `close`. */
QWidget* MakeAboutPage(const DesktopParts& parts, const std::function<void()>& close);
/** Shows it in a modal window, for when there is no project. */
void ShowAbout(const DesktopParts& parts, QWidget* parent);

}  // namespace tarvok::desktop
