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
#include "sessions/billing_files.h"
#include "sessions/load_config.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/ping.h"
#include "sessions/send_alone.h"
#include "sessions/send_config.h"

namespace tarvok::ctl {
namespace {

using Session = std::function<bool(Transfer&)>;

/** What a command says of its session. */
struct Job {
  std::string project;
  std::string load_target;  // empty for a session that loads nothing
  TransferForm form = TransferForm::kConnect;
  bool logs_in = true;
};

std::string_view FirstLogLine(TransferForm form) {
  return form == TransferForm::kBilling ? "Send Billing History" : "Send Config History...";
}

/** Puts the parts of a session together, runs it, and says why it failed. */
int Run(ProjectStore& store, const Job& job, const SessionOptions& options, const Session& session) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, job.project);
  if (!text.ok()) return Fail(text.status().message());
  Result<PasswordSource> passwords = PasswordSource::Find(store.files(), options.password_file);
  if (job.logs_in && !passwords.ok()) return Fail(passwords.status().message());

  LogFile file;
  const Status opened = file.Open(options.log_file.empty() ? DefaultLog() : options.log_file);
  // The default log is a convenience that may fail in silence; one that was asked for may not.
  if (!opened.ok() && !options.log_file.empty()) return Fail(opened.message());
  SendLog log([&](std::string_view line) { file.Write(line); });
  log.set_debug(options.trace);
  log.Line(FirstLogLine(job.form));

  QtEventServer events;
  QtSettings settings;
  QtPortMaker ports(settings, options.device);
  std::function<bool()> stopped = [] { return false; };
  ConsoleView view([&] { return passwords.value().Next(events, stopped); }, options.compare);
  Transfer transfer({.events = events,
                     .ports = ports,
                     .store = store,
                     .view = view,
                     .log = log,
                     .project_file = job.project,
                     .load_target = job.load_target,
                     .system_file = SystemFile(),
                     .temp_file = TemporaryProject()},
                    job.form);
  stopped = [&] { return transfer.waits().aborted(); };
  const StopSignals signals([&] { transfer.Abort(); });

  const bool done = session(transfer);
  const bool interrupted = transfer.waits().aborted();
  transfer.Unload();
  view.End();
  if (done) return kDone;
  return Fail(interrupted ? "interrupted" : transfer.reason());
}

}  // namespace

int Send(ProjectStore& store, const std::string& project, SendPart part, const SessionOptions& options) {
  const auto session = [&]() -> Session {
    switch (part) {
      case SendPart::kLinkTable:
        return SendLinkTable;
      case SendPart::kIpAddress:
        return SendIpAddress;
      case SendPart::kMiniBar:
        return SendMiniBarList;
      default:
        return SendConfiguration;
    }
  };
  return Run(store, {.project = project}, options, session());
}

int Load(ProjectStore& store, const std::string& out, const std::string& project, bool mini_bar, bool force,
         const SessionOptions& options) {
  if (!force && store.files().Identify(out).exists) {
    return Fail(out + ": the file exists already; --force replaces it");
  }
  if (!mini_bar) return Run(store, {.project = project, .load_target = out}, options, LoadConfiguration);
  const Job job = {.project = project, .load_target = out, .form = TransferForm::kMiniBar};
  return Run(store, job, options, LoadMiniBarList);
}

int SendBilling(ProjectStore& store, const std::string& project, const std::string& folder,
                const SessionOptions& options) {
  return Run(store, {.project = project, .form = TransferForm::kBilling}, options,
             [&](Transfer& transfer) { return SendBillingFiles(transfer, folder); });
}

int Ping(ProjectStore& store, const std::string& project, const SessionOptions& options) {
  return Run(store, {.project = project, .logs_in = false}, options, PingExchange);
}

}  // namespace tarvok::ctl
