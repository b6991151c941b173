#include "programs/ctl/session_commands.h"

#include <functional>
#include <string_view>

#include "desktop/io/qt_event_server.h"
#include "desktop/io/qt_port_maker.h"
#include "desktop/io/qt_settings.h"
#include "desktop/io/stop_signals.h"
#include "platform/log_file.h"
#include "programs/ctl/console_view.h"
#include "programs/ctl/exit_status.h"
#include "programs/ctl/password_source.h"
#include "programs/ctl/places.h"
#include "programs/ctl/project_commands.h"
#include "sessions/load_config.h"
#include "sessions/send_config.h"

namespace tarvok::ctl {
namespace {

using Session = std::function<bool(Transfer&)>;

/** Puts the parts of a session together, runs it, and says why it failed. */
int Run(ProjectStore& store, const std::string& project, const std::string& load_target,
        const SessionOptions& options, const Session& session) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, project);
  if (!text.ok()) return Fail(text.status().message());
  Result<PasswordSource> passwords = PasswordSource::Find(store.files(), options.password_file);
  if (!passwords.ok()) return Fail(passwords.status().message());

  LogFile file;
  const Status opened = file.Open(options.log_file.empty() ? DefaultLog() : options.log_file);
  // The default log is a convenience that may fail in silence; one that was asked for may not.
  if (!opened.ok() && !options.log_file.empty()) return Fail(opened.message());
  SendLog log([&](std::string_view line) { file.Write(line); });
  log.set_debug(options.trace);
  log.Line("Send Config History...");

  QtEventServer events;
  QtSettings settings;
  QtPortMaker ports(settings, options.device);
  std::function<bool()> stopped = [] { return false; };
  ConsoleView view([&] { return passwords.value().Next(events, stopped); });
  Transfer transfer({.events = events,
                     .ports = ports,
                     .store = store,
                     .view = view,
                     .log = log,
                     .project_file = project,
                     .load_target = load_target,
                     .system_file = SystemFile(),
                     .temp_file = TemporaryProject()},
                    TransferForm::kConnect);
  stopped = [&] { return transfer.waits().aborted(); };
  const StopSignals signals([&] { transfer.Abort(); });

  const bool done = session(transfer);
  const bool interrupted = transfer.waits().aborted();
  transfer.Unload();
  if (done) return kDone;
  return Fail(interrupted ? "interrupted" : transfer.reason());
}

}  // namespace

int Send(ProjectStore& store, const std::string& project, const SessionOptions& options) {
  return Run(store, project, project, options, SendConfiguration);
}

int Load(ProjectStore& store, const std::string& out, const std::string& project, bool force,
         const SessionOptions& options) {
  if (!force && store.files().Identify(out).exists) {
    return Fail(out + ": the file exists already; --force replaces it");
  }
  return Run(store, project, out, options, LoadConfiguration);
}

}  // namespace tarvok::ctl
