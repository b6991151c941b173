#include "io/stop_signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace tarvok::io {
namespace {

// A signal handler can only reach globals; this descriptor is the only one.
volatile std::sig_atomic_t wake_end = -1;

constexpr std::array kStopSignals = {SIGTERM, SIGINT, SIGHUP};

extern "C" void OnSignal(int) {
  const int kept_error = errno;
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = ::write(wake_end, &byte, 1);
  errno = kept_error;
}

/** A signal that was ignored from the start (as nohup does with SIGHUP) stays ignored. */
void SetHandlers(StopSignals::Actions& before) {
  struct sigaction action = {};
  action.sa_handler = OnSignal;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < before.size(); ++i) {
    ::sigaction(kStopSignals[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) ::sigaction(kStopSignals[i], &action, nullptr);
  }
}

}  // namespace

StopSignals::StopSignals(std::function<void()> on_stop) : on_stop_(std::move(on_stop)) {
  std::array<int, 2> ends = {-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  read_end_ = ends[0];
  wake_end = ends[1];
  notifier_ = std::make_unique<QSocketNotifier>(read_end_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
    std::array<char, 16> bytes = {};
    while (::read(read_end_, bytes.data(), bytes.size()) > 0) {
    }
    on_stop_();
  });
  SetHandlers(before_);
}

StopSignals::~StopSignals() {
  if (read_end_ < 0) return;
  for (std::size_t i = 0; i < before_.size(); ++i) ::sigaction(kStopSignals[i], &before_[i], nullptr);
  notifier_.reset();
  ::close(wake_end);
  ::close(read_end_);
  wake_end = -1;
}

}  // namespace tarvok::io
