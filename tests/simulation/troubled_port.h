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

/**
 * What a line does to its units: frames and control frames, messages, packets. Probabilities are from 0 to 1
 * and apply in both directions unless stated otherwise.
 */
struct Trouble {
  double drop = 0;
  double flip = 0;  // one bit is inverted
  double cut = 0;   // one byte is lost; for lines with frames
  double dup = 0;
  double reorder = 0;  // the unit comes after the next one; for networks
  double late = 0;     // the unit, and everything after it, is up to late_ms late
  int late_ms = 0;
  double echo = 0;  // a unit from the exchange comes again up to 900 ms later, after others
  double torn = 0;  // a unit from the exchange breaks off, and comes again complete up to 900 ms later
  double wrong_sequence = 0;  // in a unit from the exchange, with a valid check byte
  double wrong_size = 0;
  double wrong_section = 0;
  double stranger = 0;                   // a unit of another exchange precedes one from this exchange
  std::optional<int> silent_after = {};  // units of the tool
  std::optional<int> hangup_after = {};
  std::optional<int> lost = {};  // only this unit, both directions counted together, from 0
};

/**
 * The tool's port on a faulty line. It also checks each unit that the tool sends, before anything happens to
 * it, and adds each unit that either side sends to `passed`.
 */
class TroubledPort : public PortOnPort {
 public:
  struct Told {
    std::function<void(const std::string& what)> wrong;
    std::function<void()> died;  // nothing passes any more
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
  /** One direction: its random numbers, the unit held back until the next, and when the last one arrives. */
  struct Lane {
    Chances chances;
    Chances cuts;
    Chances again;  // for echoes and torn units
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
  const Trouble& trouble_;  // may change during the life of the line
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

/** The message in a unit, without the doubled bytes of a link frame. Empty if there is none. */
Bytes MessageIn(std::span<const std::uint8_t> unit, Wire wire, bool from_tool);

}  // namespace tarvok::test
