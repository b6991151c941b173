#pragma once

#include <memory>

#include <QWidget>

#include "desktop/uses.h"
#include "editing/form_controls.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/** The widget of a control: passes user actions to the form, and Refresh shows the result. */
class ControlWidget {
 public:
  virtual ~ControlWidget() = default;
  virtual QWidget* widget() = 0;
  virtual void Refresh() = 0;
};

/** Makes the widget of a control that is not a menu entry. `label` is its name for screen readers if the
 * control has no caption. */
std::unique_ptr<ControlWidget> MakeControlWidget(FormControls& form, Control& control, const CodePage& page,
                                                 const QString& label);

/** Returns the name of a control as in key scripts, such as "Check1(3)". */
QString ControlName(const ControlId& id);

}  // namespace tarvok::desktop
