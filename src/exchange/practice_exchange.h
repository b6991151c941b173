#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "exchange/exchange_memory.h"
#include "exchange/fault_plan.h"
#include "exchange/message_end.h"
#include "exchange/modem.h"
#include "exchange/uses.h"
#include "link/event_server.h"
#include "link/port.h"
#include "store/transport.h"

namespace tarvok::exchange {

struct LineConditions {
  std::optional<FaultPlan> faults = {};
  std::uint64_t seed = 1;
  std::optional<int> speed_bps = {};
};

/** An exchange with one memory and any number of connected tools, each with its own conversation. */
class PracticeExchange {
 public:
  PracticeExchange(EventServer& events, ExchangeMemory& memory, const LineConditions& conditions,
                   Complain complain);
  ~PracticeExchange();
  PracticeExchange(const PracticeExchange&) = delete;
  PracticeExchange& operator=(const PracticeExchange&) = delete;

  /** Serves a tool on that port until the port closes or the exchange hangs up, then calls `on_end`. */
  void Accept(std::unique_ptr<Port> port, Wire wire, std::function<void()> on_end = {});
  /** Puts a modem in front of the exchange. The modem lives as long as the exchange. */
  Modem& AcceptModem(std::unique_ptr<Port> line);
  /** The number of connected tools. */
  std::size_t calls() const { return calls_.size(); }

 private:
  struct Call;

  std::unique_ptr<Port> Paced(std::unique_ptr<Port> port);
  void Serve(std::unique_ptr<Port> port, Wire wire, std::function<void()> on_end);
  void MakeEnd(Call& call, Wire wire, const Complain& complain);
  void End(Call& call);

  EventServer& events_;
  ExchangeMemory& memory_;
  LineConditions conditions_;
  Complain complain_;
  std::vector<std::unique_ptr<Call>> calls_;
  std::vector<std::unique_ptr<Modem>> modems_;
  Chances error_chances_;
};

}  // namespace tarvok::exchange
