#include "desktop/window/project_keeper.h"

#include <QDateTime>

namespace tarvok::desktop {

void ProjectKeeper::Keep(const std::string& project_path, std::string_view reason) {
  const Status kept = history_.Keep(project_path, reason, QDateTime::currentSecsSinceEpoch());
  if (kept.ok() || std::exchange(warned_, true)) return;
  warn_("The earlier version of the project could not be kept. You can go on working without it.\n\n" +
        kept.message());
}

}  // namespace tarvok::desktop
