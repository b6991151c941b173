#pragma once

#include <functional>
#include <memory>

#include <QSocketNotifier>

namespace tarvok {

/**
 * Turns SIGTERM and SIGINT into an event: the handler runs from the loop, where it may do anything, not
 * inside the signal. One object a program.
 */
class StopSignals {
 public:
  explicit StopSignals(std::function<void()> on_stop);
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

 private:
  std::function<void()> on_stop_;
  int read_end_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tarvok
