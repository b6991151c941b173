#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>

#include "exchange/fault_plan.h"
#include "exchange/port_on_port.h"
#include "exchange/practice_exchange.h"
#include "link/event_server.h"
#include "link/frame.h"
#include "tests/floors.h"

namespace tarvok::test {

/** What a line does to its units: frames and control frames, messages, packets. Chances run from 0 to 1 and hold in both
 * directions, unless another is named. */
struct Trouble {
  double drop = 0;
  double flip = 0;  // one bit turned over
  double cut = 0;   // one byte is gone; for lines with frames
  double dup = 0;
  double reorder = 0;  // the unit comes behind the next one; for networks
  double late = 0;     // the unit, and with it all behind it, comes up to late_ms later
  int late_ms = 0;
  double echo = 0;            // what the exchange says comes again up to 900 ms later, behind others
  double torn = 0;            // what the exchange says breaks off, and comes whole up to 900 ms later
  double wrong_sequence = 0;  // of what the exchange says, with a right check byte
  double wrong_size = 0;
  double wrong_section = 0;
  double stranger = 0;                   // something of another exchange comes in front of what this one says
  std::optional<int> silent_after = {};  // units of the tool
  std::optional<int> hangup_after = {};
  std::optional<int> lost = {};  // that unit alone, both directions counted together, from 0
};

/** The tool's port over a troubled line. It also judges each unit that the tool sends, before anything happens to it,
 * and adds each unit that either side sends to `passed`. */
class TroubledPort : public PortOnPort {
 public:
  struct Told {
    std::function<void(const std::string& what)> wrong;
    std::function<void()> died;  // from now on nothing passes any more
  };

  TroubledPort(EventServer& events, std::unique_ptr<Port> inner, const Trouble& trouble, std::uint64_t seed,
               Wire wire, Told told, int& passed);
  ~TroubledPort() override { StopTimers(); }
  TroubledPort(const TroubledPort&) = delete;
  TroubledPort& operator=(const TroubledPort&) = delete;

  bool Send(std::span<const std::uint8_t> bytes) override;
  void Close() override;

 protected:
  void OnBytes(std::span<const std::uint8_t> bytes) override;

 private:
  /** One direction: its chances, the unit held back for the next, and when the last one comes out. */
  struct Lane {
    Chances chances;
    Chances cuts;
    Chances again;  // of echoes and torn units
    std::function<void(const Bytes&)> give;
    Bytes held = {};
    std::int64_t last_due_ms = 0;
  };

  void Pass(Lane& lane, Bytes unit);
  void Give(Lane& lane, const Bytes& unit);
  void GiveIn(std::int64_t delay_ms, Lane& lane, const Bytes& unit);
  void Die();
  Bytes Lie(Bytes unit);
  Bytes OfStranger();
  void StopTimers();

  EventServer& events_;
  const Trouble& trouble_;  // may change while the line lives
  Wire wire_;
  Told told_;
  Lane out_;
  Lane in_;
  Chances lies_;
  int units_ = 0;
  int& passed_;
  bool dead_ = false;
  std::set<EventServer::TimerId> timers_;
};

/** The message in a unit: in a link frame without its doubled bytes. Empty where there is none. */
Bytes MessageIn(std::span<const std::uint8_t> unit, Wire wire, bool from_tool);

}  // namespace tarvok::test
