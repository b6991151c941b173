// Any bytes from the line, in any split: the link, the stream readers and the messages take them without a fault, and
// what the tool's own frames say is read back by the exchange's rules.

#include <cstdint>
#include <span>

#include "link/exchange_line.h"
#include "tests/simulation/virtual_events.h"
#include "tests/simulation/virtual_line.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  if (size < 2) return 0;
  constexpr LinkMode kModes[] = {LinkMode::kServer, LinkMode::kSerial, LinkMode::kModem,
                                 LinkMode::kLanToSerial, LinkMode::kLan};
  VirtualEvents events;
  Waits waits(events);
  SendLog log;
  VirtualLine line(events);
  ExchangeLine exchange({.mode = kModes[data[0] % 5]}, waits, log, [] { return true; });
  exchange.Take(std::move(line.tool));
  exchange.link().LinkInit(1, 0);
  exchange.StartPump();

  std::span<const std::uint8_t> rest(data + 2, size - 2);
  const std::size_t piece = 1 + data[1] % 200;
  while (!rest.empty()) {
    const std::size_t length = std::min(piece, rest.size());
    line.exchange->Send(rest.first(length));
    rest = rest.subspan(length);
    events.Run(data[1] % 30);
  }
  events.Run(2000);
  exchange.Close();
  return 0;
}
