// Any bytes from a tool, split anywhere, over every wire and through the modem: the practice exchange takes
// them without failing and serves the next tool.

#include <cstdint>
#include <span>

#include "exchange/practice_exchange.h"
#include "fuzz/demand.h"
#include "fuzz/fed_port.h"
#include "sections/registry.h"
#include "tests/floors.h"
#include "tests/simulation/virtual_events.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  if (size < 2) return 0;
  constexpr int kPatience_ms = 7000;  // enough for it to give up an unanswered frame
  VirtualEvents events;
  fuzz::FedPort::Feeder tool([](std::span<const std::uint8_t> bytes) { Demand(!bytes.empty()); });
  ExchangeMemory memory(kHighestVersion);
  PracticeExchange exchange(events, memory, {}, {});
  constexpr Wire kWires[] = {Wire::kLink, Wire::kLan, Wire::kServer};
  const int way = data[0] % 4;
  if (way == 3) {
    exchange.AcceptModem(std::make_unique<fuzz::FedPort>(tool));
  } else {
    exchange.Accept(std::make_unique<fuzz::FedPort>(tool), kWires[way]);
  }
  fuzz::ForEachPiece({data + 2, size - 2}, 1 + data[1] % 200, [&](std::span<const std::uint8_t> piece) {
    tool.Give(piece);
    events.Run(data[0] / 4 * 20);
  });
  events.Run(kPatience_ms);
  tool.HangUp();
  events.Run(1);
  Demand(exchange.calls() == 0);
  return 0;
}
