#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QSocketNotifier>

#include "io/queued_port.h"
#include "io/uses.h"

namespace tarvok::io {

/**
 * The far end of a pseudo terminal, with a symbolic link through which another program finds the near end. It
 * outlives that program: the next one that opens the link gets an empty line, without its predecessor's locks
 * and leftover bytes.
 */
class PtyPort : public QueuedPort {
 public:
  /**
   * Creates the terminal and the link. An existing link that dangles or leads to a pseudo terminal is
   * replaced; anything else at that path is an error.
   */
  explicit PtyPort(std::string link);
  ~PtyPort() override { PtyPort::Close(); }

  /** Bytes that the near end does not read in time are lost, as on a line without a listener. */
  bool Send(std::span<const std::uint8_t> bytes) override;
  void Discard() override;
  /** Removes the link. */
  void Close() override;

  /** Called when the other program closes its end: the closest equivalent to control lines that drop. */
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
  int slave_ = -1;  // held open, so that the terminal remains while nobody else has it open
  int watch_ = -1;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> writable_;
  std::unique_ptr<QSocketNotifier> watched_;
  Bytes unsent_;
  std::function<void()> on_released_;
  PostedCall tell_released_{[this] {
    if (on_released_) on_released_();
  }};
};

}  // namespace tarvok::io
