#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "link/event_server.h"
#include "link/frame.h"
#include "link/port.h"
#include "tests/floors.h"

namespace tarvok::test {

/**
 * One end of a line in memory. Bytes sent come out of the other end with the next events, in order, in pieces
 * of the requested size. As on a real line, bytes on the way survive a Close by the sender, but not a
 * Discard.
 */
class VirtualPort : public Port {
 public:
  explicit VirtualPort(EventServer& events) : events_(events), self_(std::make_shared<VirtualPort*>(this)) {}
  ~VirtualPort() override { VirtualPort::Close(); }
  VirtualPort(const VirtualPort&) = delete;
  VirtualPort& operator=(const VirtualPort&) = delete;

  static void Join(VirtualPort& a, VirtualPort& b) {
    a.peer_ = b.self_;
    b.peer_ = a.self_;
  }

  PortState state() const override { return state_; }
  std::string error() const override { return error_; }

  bool Send(std::span<const std::uint8_t> bytes) override {
    if (state_ != PortState::kOpen) return false;
    writes_.emplace_back(bytes.begin(), bytes.end());
    const std::size_t piece = piece_ == 0 ? std::max<std::size_t>(bytes.size(), 1) : piece_;
    for (std::size_t at = 0; at < bytes.size(); at += piece) {
      const auto part = bytes.subspan(at, std::min(piece, bytes.size() - at));
      events_.CallLater(0, [peer = peer_, generation = generation_, value = *generation_,
                            data = Bytes(part.begin(), part.end())] {
        const auto to = peer.lock();
        if (to && *generation == value && (*to)->state_ == PortState::kOpen) (*to)->GiveBytes(data);
      });
    }
    return true;
  }

  PortAnswer SetControlLines(bool, bool) override { return PortAnswer::kDone; }

  void Discard() override {
    ++*generation_;
    if (const auto to = peer_.lock()) ++*(*to)->generation_;
  }

  /** The other end is notified after the last byte on the way. */
  void Close() override {
    if (state_ == PortState::kClosed) return;
    const bool was_open = state_ == PortState::kOpen;
    state_ = PortState::kClosed;
    if (was_open) TellPeer("The other end closed the line.");
  }

  /** Breaks the line: both ends are notified. */
  void HangUp(std::string_view reason = "The line broke.") {
    if (state_ != PortState::kOpen) return;
    TellPeer(std::string(reason));
    Fall(reason);
  }

  void set_state(PortState state, std::string error = {}) {
    state_ = state;
    error_ = std::move(error);
  }
  /** Maximum number of bytes delivered at a time; 0 delivers whole blocks. */
  void set_piece(std::size_t bytes) { piece_ = bytes; }

  /** Every block sent, in order. */
  const std::vector<Bytes>& writes() const { return writes_; }
  /** All bytes sent. */
  Bytes sent() const {
    Bytes all;
    for (const Bytes& block : writes_) all.insert(all.end(), block.begin(), block.end());
    return all;
  }
  void forget_writes() { writes_.clear(); }

 private:
  void TellPeer(std::string reason) {
    events_.CallLater(0, [peer = peer_, reason = std::move(reason)] {
      if (const auto to = peer.lock()) (*to)->Fall(reason);
    });
  }
  void Fall(std::string_view reason) {
    if (state_ != PortState::kOpen) return;
    state_ = PortState::kClosed;
    GiveClosed(reason);
  }

  EventServer& events_;
  std::shared_ptr<VirtualPort*> self_;
  std::weak_ptr<VirtualPort*> peer_;
  std::shared_ptr<int> generation_ = std::make_shared<int>(0);  // increases with each Discard
  PortState state_ = PortState::kOpen;
  std::string error_;
  std::size_t piece_ = 0;
  std::vector<Bytes> writes_;
};

/** Two ports connected by a line. Either one may be destroyed first. */
struct VirtualLine {
  explicit VirtualLine(EventServer& events)
      : tool(std::make_unique<VirtualPort>(events)), exchange(std::make_unique<VirtualPort>(events)) {
    VirtualPort::Join(*tool, *exchange);
  }

  std::unique_ptr<VirtualPort> tool;
  std::unique_ptr<VirtualPort> exchange;
};

}  // namespace tarvok::test
