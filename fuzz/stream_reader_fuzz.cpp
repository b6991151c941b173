// Any bytes as a stream of messages or packets, split anywhere: no packet yields more than a message, and
// the two readers together find no more bytes than they were fed.

#include <cstdint>
#include <cstdlib>
#include <span>

#include "link/message.h"
#include "link/stream_reader.h"
#include "tests/floors.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  if (size < 2) return 0;
  const std::size_t piece = 1 + data[0] % 200;
  std::int64_t missing = data[1] * 16;
  LanReader lan([&] { return missing; });
  ServerReader server;
  std::size_t taken = 0;
  const auto take = [&](std::span<const std::uint8_t> message) { taken += message.size(); };
  const auto take_packet = [&](std::span<const std::uint8_t> message) {
    if (message.size() > static_cast<std::size_t>(kMaxMessage)) std::abort();
    take(message);
  };
  std::int64_t tick_ms = 0;
  std::span<const std::uint8_t> rest(data + 2, size - 2);
  while (!rest.empty()) {
    const auto read = rest.first(std::min(piece, rest.size()));
    rest = rest.subspan(read.size());
    lan.Feed(read, tick_ms, take);
    server.Feed(read, tick_ms, take_packet);
    tick_ms += data[0] % 7 * 300;
    missing = missing > 59 ? missing - 59 : 0;
  }
  if (taken > 2 * size) std::abort();
  return 0;
}
