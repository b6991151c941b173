#pragma once

#include <memory>

#include <QWidget>

#include "desktop/uses.h"
#include "editing/form_controls.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/** A control of a form as a widget: what a person does goes to the form, and Refresh shows what it made of it. */
class ControlWidget {
 public:
  virtual ~ControlWidget() = default;
  virtual QWidget* widget() = 0;
  virtual void Refresh() = 0;
};

/** The widget for a control of any kind but a menu entry, which has none. `label` names it to screen readers
 * where the control has no caption of its own. */
std::unique_ptr<ControlWidget> MakeControlWidget(FormControls& form, Control& control, const CodePage& page,
                                                 const QString& label);

/** "Check1(3)", as key scripts call it. */
QString ControlName(const ControlId& id);

}  // namespace tarvok::desktop
