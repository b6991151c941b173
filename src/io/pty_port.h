#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QSocketNotifier>

#include "io/queued_port.h"
#include "io/uses.h"

namespace tarvok::io {

/**
 * The far end of a pseudo terminal, with a symbolic link by which the other program finds its near end. It
 * outlives the other program: whoever opens the link next gets an empty line, without locks and leftovers of
 * the one before.
 */
class PtyPort : public QueuedPort {
 public:
  /** Makes the terminal and the link. An existing link to a pseudo terminal or to nothing is replaced,
   * anything else at that path is an error. */
  explicit PtyPort(std::string link);
  ~PtyPort() override { PtyPort::Close(); }

  PortState state() const override { return state_; }
  std::string error() const override { return error_; }
  /** What the near end does not read in time is lost, as on a line to which nobody listens. */
  bool Send(std::span<const std::uint8_t> bytes) override;
  PortAnswer SetControlLines(bool, bool) override { return PortAnswer::kUnsupported; }
  void Discard() override;
  /** Removes the link. */
  void Close() override;

  /** Called when the other program closed its end: the nearest thing to a control line that drops. */
  void set_on_released(std::function<void()> handler) { on_released_ = std::move(handler); }

 private:
  bool Open();
  bool MakeLink();
  void Fail(const std::string& what);
  void OnReadable();
  void OnWritable();
  void OnWatched();

  std::string link_;
  std::string device_;
  int master_ = -1;
  int slave_ = -1;  // held open, so that the terminal lives on while nobody else has it open
  int watch_ = -1;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> writable_;
  std::unique_ptr<QSocketNotifier> watched_;
  Bytes unsent_;
  std::function<void()> on_released_;
  PostedCall tell_released_{[this] {
    if (on_released_) on_released_();
  }};
  PortState state_ = PortState::kError;
  std::string error_;
};

}  // namespace tarvok::io
