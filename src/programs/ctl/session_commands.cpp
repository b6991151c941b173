#include "programs/ctl/session_commands.h"

#include <csignal>
#include <functional>
#include <string_view>
#include <vector>

#include "io/qt_event_server.h"
#include "io/qt_port_maker.h"
#include "io/qt_settings.h"
#include "io/stop_signals.h"
#include "platform/log_file.h"
#include "programs/ctl/console_view.h"
#include "programs/ctl/exit_status.h"
#include "programs/ctl/password_source.h"
#include "programs/ctl/places.h"
#include "programs/ctl/project_commands.h"
#include "programs/uses.h"
#include "sessions/billing_files.h"
#include "sessions/load_config.h"
#include "sessions/ping.h"
#include "sessions/send_config.h"
#include "store/new_project.h"
#include "store/whole_write.h"

namespace tarvok::ctl {
namespace {

using Session = std::function<bool(Transfer&)>;

/** The session that a command runs. */
struct Job {
  std::string project;
  std::string load_target;  // empty if the session does not load
  std::string folder = {};  // the folder whose files are sent
  bool may_replace = true;
  TransferForm form = TransferForm::kConnect;
  bool logs_in = true;
};

std::string_view FirstLogLine(TransferForm form) {
  return form == TransferForm::kBilling ? "Send Billing History" : "Send Config History...";
}

/** The history must not replace a file that the session reads or creates. */
std::string TakenByLog(FileSystem& files, const Job& job, const SessionOptions& options) {
  std::vector<std::string> all = {job.project, options.password_file, SystemFile(), job.load_target};
  if (!job.folder.empty()) {
    const Result<std::vector<std::string>> names = files.List(job.folder);
    if (names.ok()) {
      for (const std::string& name : names.value()) {
        if (IsBillingFile(name)) all.push_back(InFolder(job.folder, name));
      }
    }
  }
  for (const std::string& taken : all) {
    if (!taken.empty() && IsSameFile(files, options.log_file, taken)) return taken;
  }
  return {};
}

/**
 * Opens the history. If the default one cannot be opened, the session silently goes on without, except that a
 * note says when another session is using it. For a history that was asked for, any failure is an error.
 */
Status OpenLog(LogFile& file, const std::string& asked_for) {
  const Status opened = file.Open(asked_for.empty() ? DefaultLog() : asked_for);
  if (!asked_for.empty()) return opened;
  if (opened.kind() == ErrorKind::kExists) Note(opened.message() + "; this one is not logged");
  return {};
}

/** Puts the parts of a session together, runs it, and reports why it failed. */
int Run(ProjectStore& store, const Job& job, const SessionOptions& options, const Session& session) {
  const Result<std::shared_ptr<const IniText>> text = OpenProject(store, job.project);
  if (!text.ok()) return Fail(text.status().message());
  Result<PasswordSource> passwords = PasswordSource::Find(store.files(), options.password_file);
  if (job.logs_in && !passwords.ok()) return Fail(passwords.status().message());

  if (!options.log_file.empty()) {
    const std::string taken = TakenByLog(store.files(), job, options);
    if (!taken.empty()) return Misused("--log: " + options.log_file + " is a file of this session: " + taken);
  }
  LogFile file;
  if (const Status opened = OpenLog(file, options.log_file); !opened.ok()) return Fail(opened.message());
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
                     .temp_folder = TemporaryFolder(),
                     .may_replace = job.may_replace},
                    job.form);
  stopped = [&] { return transfer.waits().aborted(); };
  const StopSignals signals([&] { transfer.Abort(); });
  // If the reader of our output goes away, the session with the exchange must still end properly.
  std::signal(SIGPIPE, SIG_IGN);

  const bool done = session(transfer);
  const bool interrupted = transfer.waits().aborted();
  transfer.Unload();
  view.End();
  if (!options.log_file.empty() && !file.status().ok())
    Note("the history is incomplete: " + file.status().message());
  if (done) {
    view.TellPace();
    return kDone;
  }
  return Fail(interrupted ? "interrupted" : transfer.report().reason());
}

}  // namespace

int Send(ProjectStore& store, const std::string& project, const SendPart* part,
         const SessionOptions& options) {
  return Run(store, {.project = project}, options, part == nullptr ? SendConfiguration : part->send);
}

int Load(ProjectStore& store, const std::string& out, const std::string& project, bool mini_bar, bool force,
         const SessionOptions& options) {
  FileSystem& files = store.files();
  if (!force && files.Identify(out).exists) {
    return Fail(out + ": the file already exists; --force replaces it");
  }
  if (!options.password_file.empty() && IsSameFile(files, out, options.password_file)) {
    return Misused(out + ": is the password file");
  }
  // Check now, not after everything has arrived.
  if (const Status writable = CanWriteWhole(files, out); !writable.ok()) return Fail(writable.message());
  const Job job = {.project = project,
                   .load_target = out,
                   .may_replace = force,
                   .form = mini_bar ? TransferForm::kMiniBar : TransferForm::kConnect};
  return Run(store, job, options, mini_bar ? LoadMiniBarList : LoadConfiguration);
}

int SendBilling(ProjectStore& store, const std::string& project, const std::string& folder,
                const SessionOptions& options) {
  return Run(store, {.project = project, .folder = folder, .form = TransferForm::kBilling}, options,
             [&](Transfer& transfer) { return SendBillingFiles(transfer, folder); });
}

int Ping(ProjectStore& store, const std::string& project, const SessionOptions& options) {
  return Run(store, {.project = project, .logs_in = false}, options, PingExchange);
}

}  // namespace tarvok::ctl
