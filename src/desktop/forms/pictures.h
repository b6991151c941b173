#pragma once

#include <string>

#include "desktop/forms/form_view.h"
#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"

namespace tarvok::desktop {

/** The drawing that a layout calls by this name, over the form's controls; nullptr for a name that none has. */
FormView::Picture* MakePicture(const std::string& name, FormControls& form, DesktopParts& parts);

// The drawings by themselves.

/** "telephone": the 20 keys `lblNum` on a desk telephone. */
FormView::Picture* MakeTelephone(FormControls& form, const CodePage& page);
/** "console": the 64 keys `lblDSS` of the console beside it. */
FormView::Picture* MakeConsole(FormControls& form, const CodePage& page);
/** "tenants": the matrix of `cell(row,column)`, whole where there is room, else the part that the scroll bars
 * show. */
FormView::Picture* MakeTenantMatrix(FormControls& form);
/** "calendar": the holidays as days of a year to click on. */
FormView::Picture* MakeCalendar(FormControls& form);
/** "week": day and night times of the weekdays as bars over 24 hours. */
FormView::Picture* MakeWeek(FormControls& form);

}  // namespace tarvok::desktop
