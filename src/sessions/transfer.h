#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "link/exchange_line.h"
#include "sessions/pace.h"
#include "sessions/reporter.h"
#include "sessions/session_view.h"
#include "sessions/temporary_project.h"
#include "sessions/uses.h"
#include "store/connection_settings.h"
#include "store/project_store.h"

namespace tarvok::sessions {

/** The forms that hold a connection. Some texts depend on the form. */
enum class TransferForm { kConnect, kMiniBar, kBilling };

/** What a program supplies to a session. */
struct TransferParts {
  EventServer& events;
  PortMaker& ports;
  ProjectStore& store;
  SessionView& view;
  SendLog& log;
  std::string project_file;  // provides the connection settings and the sections that are sent
  std::string load_target;   // replaced by a load if the user says Yes: normally the open project
  std::string system_file;   // contains the link's bench setting
  std::string temp_folder;   // where a load creates a private folder for its project
  bool may_replace = true;   // false: a load does not replace a target that exists at its end
};

/**
 * What an open transfer form holds: the connection settings and the line to the exchange, and how every
 * session begins and ends. Sessions are functions that use it.
 */
class Transfer {
 public:
  Transfer(const TransferParts& parts, TransferForm form);
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /**
   * Begins every session: disables the buttons, starts the link's tick and the elapsed time, and logs the
   * heading. `what` is "" for a session without a heading.
   */
  void Begin(std::string_view what = {});
  /** Ends every session: closes the port, stops the timers and enables the buttons. */
  void CleanUp();
  /** Ends a send after a failed section: keeps a serial port open for Unload. */
  void CleanUpKeepingPort();
  /**
   * Called when the form closes. If a failed section or an abort left a serial port open, sets the exchange
   * back to normal, then closes the port. Must not be called from within one of the session's own waits.
   */
  void Unload();
  /** Called when the user closes the form: every wait ends and the session unwinds without boxes. */
  void Abort() { waits_.Abort(); }

  const TransferParts& parts() const { return parts_; }
  SessionView& view() { return parts_.view; }
  ProjectStore& store() { return parts_.store; }
  TransferForm form() const { return form_; }
  ConnectionSettings& settings() { return settings_; }
  const Transport& transport() const { return TransportOf(line_.mode()); }
  Waits& waits() { return waits_; }
  ExchangeLine& line() { return line_; }
  MessageLayer& messages() { return line_.messages(); }
  Reporter& report() { return report_; }
  PaceMeter& pace() { return pace_; }

  /** The exchange's version as read at log-in. Later version replies do not change a session. */
  int version = 0;
  /** True while a modem is being called: a call may be given up, even in a send. */
  bool calling = false;
  /**
   * The temporary project of the latest load; null before the first. It exists until the next load or until
   * the form closes.
   */
  std::unique_ptr<TemporaryProject> temporary;

 private:
  void StopClock();
  void OnEnded(std::string_view reason);

  TransferParts parts_;
  TransferForm form_;
  Waits waits_;
  ConnectionSettings settings_;
  ExchangeLine line_;
  Reporter report_;
  PaceMeter pace_;
};

}  // namespace tarvok::sessions
