#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "exchange/uses.h"
#include "link/port.h"

namespace tarvok::exchange {

/** A port that wraps another one and passes everything on. Derived classes change what they need. */
class PortOnPort : public Port {
 public:
  explicit PortOnPort(std::unique_ptr<Port> inner) : inner_(std::move(inner)) {
    inner_->set_on_bytes([this](std::span<const std::uint8_t> bytes) { OnBytes(bytes); });
    inner_->set_on_closed([this](std::string_view reason) { OnClosed(reason); });
  }

  PortState state() const override { return inner_->state(); }
  std::string error() const override { return inner_->error(); }
  bool Send(std::span<const std::uint8_t> bytes) override { return inner_->Send(bytes); }
  PortAnswer SetControlLines(bool dtr, bool rts) override { return inner_->SetControlLines(dtr, rts); }
  void Discard() override { inner_->Discard(); }
  void Close() override { inner_->Close(); }

 protected:
  virtual void OnBytes(std::span<const std::uint8_t> bytes) { GiveBytes(bytes); }
  virtual void OnClosed(std::string_view reason) { GiveClosed(reason); }

  Port& inner() { return *inner_; }

 private:
  std::unique_ptr<Port> inner_;
};

}  // namespace tarvok::exchange
