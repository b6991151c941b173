// tarvok-setup: the technician's program. Here, and only here, its parts are put together.

#include <memory>
#include <string>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

#include "desktop/colours.h"
#include "desktop/io/qt_event_server.h"
#include "desktop/io/qt_port_maker.h"
#include "desktop/io/qt_settings.h"
#include "desktop/io/stop_signals.h"
#include "desktop/main_window.h"
#include "desktop/shown_text.h"
#include "desktop/transfer_kind.h"
#include "platform/log_file.h"
#include "platform/posix_file_system.h"
#include "programs/ctl/places.h"
#include "shell/main_frame.h"

namespace tarvok {
namespace {

/** The history, begun anew; where it can't be opened a session runs without one. */
SendLog::Sink OpenLog() {
  auto file = std::make_shared<LogFile>();
  if (!file->Open(ctl::DefaultLog()).ok()) return {};
  return [file](std::string_view text) { file->Write(text); };
}

/** Whether another instance of this user is running; one that died leaves no trace. */
bool HasOtherInstance(QLockFile& lock) {
  lock.setStaleLockTime(0);
  return !lock.tryLock(0) && lock.error() == QLockFile::LockFailedError;
}

/** The project to begin with, "" for none. */
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

int Run(int argc, char** argv) {
  QApplication application(argc, argv);
  const std::string project = ProjectArgument();
  QtSettings settings;
  ApplyColours(settings);
  PosixFileSystem files;
  ProjectStore store(files);
  QtEventServer events;
  QtPortMaker ports(settings);
  SharedState state;
  DesktopParts parts{.events = events,
                     .ports = ports,
                     .store = store,
                     .settings = settings,
                     .state = state,
                     .system_file = ctl::SystemFile(),
                     .temp_file = ctl::TemporaryProject(),
                     .open_log = OpenLog};
  RecentFiles recent(settings);
  MainWindow window(parts);
  MainFrame frame({.store = store,
                   .recent = recent,
                   .state = state,
                   .view = window,
                   .system_file = parts.system_file,
                   .forms = {{"connect", MakeTransferFactory(parts, ConnectKind(), &window)},
                             {"minibarconnect", MakeTransferFactory(parts, MiniBarKind(), &window)},
                             {"billing", MakeTransferFactory(parts, BillingKind(), &window)},
                             {"about", [&window](const FormContext& context) {
                                return MakeAboutForm(window, context);
                              }}}});
  window.Attach(frame);
  QLockFile lock(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
                 QStringLiteral("/tarvok-setup.lock"));
  frame.Start(HasOtherInstance(lock));
  window.show();
  if (!project.empty()) frame.OpenProject(project);
  const StopSignals signals([&window] { window.close(); });
  return QApplication::exec();
}

}  // namespace
}  // namespace tarvok

int main(int argc, char** argv) {
  return tarvok::Run(argc, argv);
}
