#include "desktop/window/project_keeper.h"

#include <QDateTime>

namespace tarvok::desktop {

void ProjectKeeper::Keep(const std::string& project_path, std::string_view reason) {
  const Status kept = history_.Keep(project_path, reason, QDateTime::currentSecsSinceEpoch());
  if (kept.ok() || std::exchange(told_, true)) return;
  tell_(
      "The project as it was can't be kept among the earlier versions. Your work goes on without that.\n\n" +
      kept.message());
}

}  // namespace tarvok::desktop
