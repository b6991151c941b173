#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <utility>

#include "link/frame.h"
#include "link/port.h"
#include "tests/floors.h"

namespace tarvok::fuzz {

/**
 * A port that a target feeds by hand and that shows what is sent. It is owned by the code under test, so the
 * target reaches it only through its feeder.
 */
class FedPort : public Port {
 public:
  using SentHandler = std::function<void(std::span<const std::uint8_t>)>;

  /** The target's access to the port; may outlive the port. */
  class Feeder {
   public:
    explicit Feeder(SentHandler on_sent = {}) : on_sent_(std::move(on_sent)) {}
    Feeder(const Feeder&) = delete;
    Feeder& operator=(const Feeder&) = delete;

    /**
     * Does nothing if the port is closed or destroyed. The bytes are copied to a block of their own, so that
     * reads past their end are detected.
     */
    void Give(std::span<const std::uint8_t> bytes) {
      if (!open()) return;
      const Bytes block(bytes.begin(), bytes.end());
      port_->GiveBytes(block);
    }
    void HangUp() {
      if (port_ == nullptr || std::exchange(port_->state_, PortState::kClosed) != PortState::kOpen) return;
      port_->GiveClosed("The line broke.");
    }
    bool open() const { return port_ != nullptr && port_->state_ == PortState::kOpen; }

   private:
    friend class FedPort;
    SentHandler on_sent_;
    FedPort* port_ = nullptr;
  };

  explicit FedPort(Feeder& feeder) : feeder_(feeder) { feeder_.port_ = this; }
  ~FedPort() override { feeder_.port_ = nullptr; }
  FedPort(const FedPort&) = delete;
  FedPort& operator=(const FedPort&) = delete;

  PortState state() const override { return state_; }
  std::string error() const override { return {}; }
  bool Send(std::span<const std::uint8_t> bytes) override {
    if (state_ != PortState::kOpen) return false;
    if (feeder_.on_sent_) feeder_.on_sent_(bytes);
    return true;
  }
  PortAnswer SetControlLines(bool, bool) override { return PortAnswer::kUnsupported; }
  void Discard() override {}
  void Close() override { state_ = PortState::kClosed; }

 private:
  Feeder& feeder_;
  PortState state_ = PortState::kOpen;
};

/** Calls `take` with the bytes, one piece after another. */
template <typename Take>
void ForEachPiece(std::span<const std::uint8_t> bytes, std::size_t piece, Take take) {
  while (!bytes.empty()) {
    const auto front = bytes.first(std::min(piece, bytes.size()));
    bytes = bytes.subspan(front.size());
    take(front);
  }
}

}  // namespace tarvok::fuzz
