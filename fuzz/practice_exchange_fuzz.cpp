// Any bytes from a tool, in any split, over every wire and through the modem: the practice exchange takes them without a
// fault, and is there for the next tool.

#include <cstdint>
#include <span>

#include "exchange/practice_exchange.h"
#include "sections/registry.h"
#include "tests/simulation/virtual_events.h"
#include "tests/simulation/virtual_line.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  if (size < 2) return 0;
  VirtualEvents events;
  ExchangeMemory memory(kHighestVersion);
  PracticeExchange exchange(events, memory, {}, {});
  VirtualLine line(events);
  constexpr Wire kWires[] = {Wire::kLink, Wire::kLan, Wire::kServer};
  const int way = data[0] % 4;
  if (way == 3) {
    exchange.AcceptModem(std::move(line.exchange));
  } else {
    exchange.Accept(std::move(line.exchange), kWires[way]);
  }
  std::span<const std::uint8_t> rest(data + 2, size - 2);
  const std::size_t piece = 1 + data[1] % 200;
  while (!rest.empty()) {
    const std::size_t length = std::min(piece, rest.size());
    line.tool->Send(rest.first(length));
    rest = rest.subspan(length);
    events.Run(data[1] % 30);
  }
  events.Run(5000);
  line.tool->Close();
  events.Run(5000);
  if (way != 3 && exchange.calls() != 0) __builtin_trap();
  return 0;
}
