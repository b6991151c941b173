#pragma once

#include <string>

#include "desktop/forms/form_view.h"
#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"

namespace tarvok::desktop {

/** Makes the picture with the name that a layout uses, for the form's controls; nullptr for an unknown
 * name. */
FormView::Picture* MakePicture(const std::string& name, FormControls& form, DesktopParts& parts);

// The single pictures.

/** "telephone": the 20 keys `lblNum` of a desk telephone. */
FormView::Picture* MakeTelephone(FormControls& form, const CodePage& page);
/** "console": the 64 keys `lblDSS` of the attached console. */
FormView::Picture* MakeConsole(FormControls& form, const CodePage& page);
/** "tenants": the matrix of `cell(row,column)`, whole if there is room, else the part that the scroll bars
 * select. */
FormView::Picture* MakeTenantMatrix(FormControls& form);
/** "calendar": a year whose days can be clicked to make them holidays. */
FormView::Picture* MakeCalendar(FormControls& form);
/** "week": the day and night times of the weekdays as bars of 24 hours. */
FormView::Picture* MakeWeek(FormControls& form);

}  // namespace tarvok::desktop
