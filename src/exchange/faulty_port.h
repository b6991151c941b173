#pragma once

#include <functional>
#include <memory>
#include <set>
#include <utility>

#include "exchange/fault_plan.h"
#include "exchange/port_on_port.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/frame.h"

namespace tarvok::exchange {

/** Tells how many bytes the first unit of what came has; 0 if it is not whole yet. */
using UnitCutter = std::function<std::size_t(std::span<const std::uint8_t>)>;

/** Frames and control frames of the link; a byte between them is a unit by itself. */
std::size_t LinkUnit(std::span<const std::uint8_t> bytes);
/** Packets to the relay server. */
std::size_t ServerUnit(std::span<const std::uint8_t> bytes);
/** Messages of a LAN stream: the tool writes one and waits, so what comes at once is one. */
inline std::size_t LanUnit(std::span<const std::uint8_t> bytes) {
  return bytes.size();
}

/**
 * A port that damages what passes. The exchange sends one unit a Send; what comes is cut into units. The fate
 * of the k-th unit of a direction depends on the seed and k alone.
 */
class FaultyPort : public PortOnPort {
 public:
  FaultyPort(EventServer& events, std::unique_ptr<Port> inner, const FaultPlan& plan, std::uint64_t seed,
             UnitCutter cutter);
  ~FaultyPort() override { StopTimers(); }
  FaultyPort(const FaultyPort&) = delete;
  FaultyPort& operator=(const FaultyPort&) = delete;

  bool Send(std::span<const std::uint8_t> bytes) override;
  void Close() override;

 protected:
  void OnBytes(std::span<const std::uint8_t> bytes) override;

 private:
  /** The unit as it comes out: damaged, empty if it is lost, doubled if it comes twice. */
  Bytes Damage(std::span<const std::uint8_t> unit, Chances& chances) const;
  void SendLater(Bytes bytes);
  void StopTimers();

  EventServer& events_;
  FaultPlan plan_;
  UnitCutter cutter_;
  Chances in_chances_;
  Chances out_chances_;
  Bytes uncut_;
  int units_ = 0;  // that came from the tool
  bool dead_ = false;
  std::set<EventServer::TimerId> delayed_;
};

}  // namespace tarvok::exchange
