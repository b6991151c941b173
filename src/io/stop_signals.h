#pragma once

#include <array>
#include <csignal>
#include <functional>
#include <memory>

#include <QSocketNotifier>

#include "io/uses.h"

namespace tarvok::io {

/**
 * Turns SIGTERM, SIGINT and SIGHUP (loss of the terminal) into an event: the handler runs from the loop,
 * where it may do anything, not inside the signal handler. One object per program.
 */
class StopSignals {
 public:
  using Actions = std::array<struct sigaction, 3>;

  explicit StopSignals(std::function<void()> on_stop);
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

 private:
  Actions before_ = {};  // by signal; restored at the end
  std::function<void()> on_stop_;
  int read_end_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tarvok::io
