#pragma once

#include <string>

#include "programs/uses.h"
#include "sessions/mini_bar_transfer.h"
#include "sessions/send_alone.h"
#include "store/project_store.h"

namespace tarvok::ctl {

/** The options of all session commands. */
struct SessionOptions {
  std::string password_file;
  std::string log_file;  // empty for the default
  std::string device;    // used for every serial port of this run
  bool compare = false;  // read every section back and compare it
  bool trace = false;    // the link layer writes to the log, too
};

// The commands that talk to an exchange. An application object must exist. Each returns the exit status.

/** A part of a project that can be sent alone. */
struct SendPart {
  const char* option;
  const char* about;
  bool (*send)(Transfer& transfer);
};
inline constexpr SendPart kSendParts[] = {
    {"--link-table", "only the PBX link table", SendLinkTable},
    {"--ip", "only the exchange's new IP address", SendIpAddress},
    {"--minibar", "only the mini bar list", SendMiniBarList},
};

/** Sends one part, or the whole configuration if `part` is nullptr. */
int Send(ProjectStore& store, const std::string& project, const SendPart* part,
         const SessionOptions& options);
/**
 * Loads from the exchange that the settings of `project` specify into `out`: the configuration, or the mini
 * bar list into a copy of `project`.
 */
int Load(ProjectStore& store, const std::string& out, const std::string& project, bool mini_bar, bool force,
         const SessionOptions& options);
/** Sends the billing tables of a folder. */
int SendBilling(ProjectStore& store, const std::string& project, const std::string& folder,
                const SessionOptions& options);
/** Checks that the exchange responds. */
int Ping(ProjectStore& store, const std::string& project, const SessionOptions& options);

}  // namespace tarvok::ctl
