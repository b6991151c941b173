#include "desktop/forms/pictures.h"

namespace tarvok::desktop {

FormView::Picture* MakePicture(const std::string& name, FormControls& form, DesktopParts& parts) {
  if (name == "telephone") return MakeTelephone(form, PageOf(parts.settings));
  if (name == "console") return MakeConsole(form, PageOf(parts.settings));
  if (name == "tenants") return MakeTenantMatrix(form);
  if (name == "calendar") return MakeCalendar(form);
  if (name == "week") return MakeWeek(form);
  return nullptr;
}

}  // namespace tarvok::desktop
