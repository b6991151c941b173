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
 * Any form, drawn from its layout. The same class draws every editor and every dialog in front of one; what
 * can't be said in a layout is a picture, made by name.
 */
class FormView : public QWidget {
 public:
  /** A drawing over the form's controls. It is refreshed with them. */
  class Picture : public QWidget {
   public:
    using QWidget::QWidget;
    virtual void Refresh() = 0;
  };
  struct Parts {
    const CodePage& page;
    std::function<Picture*(const std::string& name, FormControls& form)> make_picture;
    /** The form's table, where it has one. */
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
  bool form_gone_ = false;  // a dialog's form goes before what shows it
};

}  // namespace tarvok::desktop
