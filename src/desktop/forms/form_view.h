#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QBoxLayout>
#include <QDialog>
#include <QPointer>
#include <QWidget>

#include "desktop/forms/control_widget.h"
#include "desktop/uses.h"
#include "editing/form_controls.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/**
 * Draws any form from its layout: every editor, and every dialog in front of one. What a layout can't
 * describe is a picture, which is made by name.
 */
class FormView : public QWidget {
 public:
  /** A drawing that shows some of the form's controls, and is refreshed with them. */
  class Picture : public QWidget {
   public:
    using QWidget::QWidget;
    virtual void Refresh() = 0;
  };
  struct Parts {
    const CodePage& page;
    std::function<Picture*(const std::string& name, FormControls& form)> make_picture;
    /** Makes the widget of the form's table, if it has one. */
    std::function<QWidget*()> make_table;
    std::function<void()> refresh_table;
  };

  FormView(FormControls& form, Parts parts, QWidget* parent = nullptr);
  ~FormView() override;

  void Refresh();

 private:
  QWidget* MakeGroup(const FormLayout& part);
  QLayout* MakeColumn(const FormLayout& part);
  void AddPart(QBoxLayout* to, const FormLayout& part, int stretch);
  QWidget* MakeControl(Control& control, const QString& label);
  void AddFields(QBoxLayout* to, const std::vector<FormLayout>& parts, std::size_t& at);
  void FollowDialog();
  void ShowDialog();

  FormControls& form_;
  Parts parts_;
  std::vector<std::unique_ptr<ControlWidget>> controls_;
  std::vector<QPointer<Picture>> pictures_;
  FormControls* shown_dialog_ = nullptr;
  QPointer<QDialog> dialog_;
  QPointer<FormView> dialog_view_;
  bool form_gone_ = false;  // the form of a dialog is deleted before its view
};

}  // namespace tarvok::desktop
