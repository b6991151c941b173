#pragma once

#include <string>

#include "store/project_store.h"

namespace tarvok::ctl {

/** What every session command takes. */
struct SessionOptions {
  std::string password_file;
  std::string log_file;  // empty for the default
  std::string device;    // stands for every serial port of this run
  bool trace = false;    // the link layer writes to the log, too
};

// The commands that talk to an exchange. An application object must exist. Each returns the exit status.

/** Sends the whole configuration. */
int Send(ProjectStore& store, const std::string& project, const SessionOptions& options);
/** Reads the exchange that the settings of `project` name into `out`. */
int Load(ProjectStore& store, const std::string& out, const std::string& project, bool force,
         const SessionOptions& options);

}  // namespace tarvok::ctl
