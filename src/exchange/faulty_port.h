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

/** Returns the size of the first unit in the received bytes; 0 if it is incomplete. */
using UnitCutter = std::function<std::size_t(std::span<const std::uint8_t>)>;

/** Frames and control frames of the link; each byte between them is a unit of its own. */
std::size_t LinkUnit(std::span<const std::uint8_t> bytes);
/** Packets to the relay server. */
std::size_t ServerUnit(std::span<const std::uint8_t> bytes);
/**
 * Messages of a LAN stream: the tool writes one and waits, so everything that arrives together is one unit.
 */
inline std::size_t LanUnit(std::span<const std::uint8_t> bytes) {
  return bytes.size();
}

/**
 * A port that damages the units that pass through it. The exchange sends one unit per Send; received bytes
 * are cut into units. What happens to the k-th unit of a direction depends only on the seed and k.
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
  /** The unit after damage: changed, empty if it is lost, repeated if it is duplicated. */
  Bytes Damage(std::span<const std::uint8_t> unit, Chances& chances) const;
  void SendLater(Bytes bytes);
  void StopTimers();

  EventServer& events_;
  FaultPlan plan_;
  UnitCutter cutter_;
  Chances in_chances_;
  Chances out_chances_;
  Bytes uncut_;
  int units_ = 0;  // received from the tool
  bool dead_ = false;
  std::set<EventServer::TimerId> delayed_;
};

}  // namespace tarvok::exchange
