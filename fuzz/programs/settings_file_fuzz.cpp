// Any bytes as the per-user settings file: reading any setting works, and what is written is read back. The
// first line is the text to write.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include <QSettings>

#include "fuzz/demand.h"
#include "io/code_page.h"
#include "io/qt_port_maker.h"
#include "io/qt_settings.h"
#include "store/recent_files.h"
#include "tests/floors.h"

namespace {

namespace fs = std::filesystem;

/** The folder of this process's settings, deleted at its end. */
const fs::path& Folder() {
  static const fs::path folder = [] {
    fs::path made = fs::temp_directory_path() / ("settings_file_fuzz." + std::to_string(::getpid()));
    fs::create_directories(made / "Tarvok config");
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(made.string()));
    return made;
  }();
  static const int gone = std::atexit([] { fs::remove_all(Folder()); });
  Demand(gone == 0);
  return folder;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string written = text.substr(0, text.find('\n'));
  const fs::path file = Folder() / "Tarvok config" / "Tarvok config.ini";
  fs::remove(file);
  std::ofstream(file, std::ios::binary) << text.substr(std::min(written.size() + 1, text.size()));
  {
    QtSettings settings;
    RecentFiles recent(settings);
    recent.LoadRecentFiles();
    Demand(recent.ShowRecentFiles().size() <= RecentFiles::kCount);
    Demand(!CodePage::Of(settings).name().empty());
    for (int port = 1; port <= kSerialPorts; ++port) Demand(!SerialDevice(settings, port).empty());
    settings.Set("Recent Files", "Recent1", written);
    Demand(settings.Get("Recent Files", "Recent1") == written);
  }
  QtSettings again;
  Demand(again.Get("Recent Files", "Recent1") == written);
  return 0;
}
