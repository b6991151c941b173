// tarvok-setup: the technician's program. This file is the only place that puts its parts together.

#include <clocale>
#include <fontconfig/fontconfig.h>
#include <memory>
#include <string>
#include <thread>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>

#include "desktop/look/colours.h"
#include "desktop/look/shown_text.h"
#include "desktop/window/boxes.h"
#include "desktop/window/commands.h"
#include "desktop/window/project_keeper.h"
#include "frame/main_frame.h"
#include "io/qt_event_server.h"
#include "io/qt_port_maker.h"
#include "io/qt_settings.h"
#include "io/stop_signals.h"
#include "platform/instance_lock.h"
#include "platform/log_file.h"
#include "platform/posix_file_system.h"
#include "programs/ctl/places.h"
#include "programs/uses.h"
#include "store/new_project.h"

namespace tarvok::programs {
namespace {

/** Opens the history, which starts empty; if that fails, sessions run without one. */
SendLog::Sink OpenLog() {
  auto file = std::make_shared<LogFile>();
  if (!file->Open(ctl::DefaultLog()).ok()) return {};
  return [file](std::string_view text) { file->Write(text); };
}

/** The project to open at the start; "" for none. */
std::string ProjectArgument() {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Sets up a telephone exchange."));
  parser.addHelpOption();
  parser.addPositionalArgument(QStringLiteral("PROJECT"), QStringLiteral("project file to open"),
                               QStringLiteral("[PROJECT]"));
  parser.process(*QCoreApplication::instance());
  const QStringList arguments = parser.positionalArguments();
  if (arguments.isEmpty()) return {};
  return PathBytes(QDir::cleanPath(QDir().absoluteFilePath(arguments.constFirst())));
}

/**
 * Takes as long as connecting to the display, so the two run in parallel. Meanwhile the application sets the
 * program's locale, so this thread uses a locale of its own.
 */
void ReadFontSettings() {
  const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  uselocale(plain);
  FcInit();
  uselocale(LC_GLOBAL_LOCALE);
  freelocale(plain);
}

int Run(int argc, char** argv) {
  std::thread fonts(ReadFontSettings);
  QApplication application(argc, argv);
  fonts.join();
  const std::string project = ProjectArgument();
  QtSettings settings;
  ApplyColours(settings);
  PosixFileSystem files;
  ProjectStore store(files);
  QtEventServer events;
  QtPortMaker ports(settings);
  SharedState state;
  History history(files, ctl::DataFolder("history"), ctl::MakeFolder);
  ExchangedCopies copies(files, ctl::DataFolder("exchanges"), ctl::MakeFolder);
  ProjectKeeper keeper(history, [](const std::string& text) {
    ShowBox(QApplication::activeWindow(), QMessageBox::Warning, Words(text));
  });
  DesktopParts parts{
      .events = events,
      .ports = ports,
      .store = store,
      .settings = settings,
      .state = state,
      .system_file = ctl::SystemFile(),
      .temp_folder = ctl::TemporaryFolder(),
      .open_log = OpenLog,
      .history = history,
      .copies = copies,
      .keep = [&keeper](const std::string& path, std::string_view reason) { keeper.Keep(path, reason); },
      .practice_program = InFolder(PathBytes(QCoreApplication::applicationDirPath()), "tarvok-exchange"),
      .practice_folder = ctl::DataFolder("practice exchange"),
      .system_file_line = ctl::SystemFileLine};
  if (!project.empty()) parts.check.Begin(store.Snapshot(project));
  RecentFiles recent(settings);
  MainWindow window(parts);
  MainFrame frame({.store = store,
                   .recent = recent,
                   .state = state,
                   .view = window,
                   .system_file = parts.system_file,
                   .commands = Commands(parts, window)});
  window.Attach(frame);
  const QString own_folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  const InstanceLock lock(InFolder(PathBytes(own_folder), "tarvok-setup.lock"));
  frame.Start(lock.held_elsewhere());
  if (!project.empty()) frame.OpenProject(project);
  window.show();
  const StopSignals signals([&window] { window.close(); });
  return QApplication::exec();
}

}  // namespace
}  // namespace tarvok::programs

int main(int argc, char** argv) {
  return tarvok::programs::Run(argc, argv);
}
