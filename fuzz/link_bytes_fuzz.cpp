// Any bytes on a framed line, split anywhere, with any time between them: the tool only ever sends whole
// frames, none of its frames waits forever, and a line that starts again afterwards works.

#include <iterator>

#include "fuzz/tool_line.h"
#include "tests/floors.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  if (size < 2) return 0;
  constexpr std::uint8_t kTraced = 0x80;
  constexpr std::uint8_t kSending = 0x40;
  constexpr int kGivenUp_ticks = 8 * 101;  // a frame and six enquiries, each a second and a tick
  fuzz::ToolLine line(LinkMode::kSerial, (data[0] & kTraced) != 0);
  constexpr std::uint8_t kIdle[] = {kFromTool, 0xFF, 0, command::kIdle};
  if ((data[0] & kSending) != 0) line.link().SendData(kIdle);
  // A tick does nothing unless a reply is pending.
  const auto tick = [&](int times) {
    for (int i = 0; i < times && !line.link().send_done(); ++i) line.link().Poll();
  };
  constexpr int kTicks[] = {0, 1, 30, 101};
  fuzz::ForEachPiece({data + 2, size - 2}, 1 + data[1] % 64, [&](std::span<const std::uint8_t> piece) {
    line.Give(piece);
    tick(kTicks[data[0] % std::size(kTicks)]);
    Demand(line.messages().MissingBytes() >= 0);
  });
  tick(kGivenUp_ticks);
  Demand(line.link().send_done());
  const std::size_t sent = line.sent();

  line.link().Init(1, 0);
  line.messages().state().reply_ok = false;
  line.Give(BuildFrame(kExchangeAddress, {}));
  Demand(line.link().is_up());
  constexpr std::uint8_t kOk[] = {kFromExchange, 0, 0, reply::kOk};
  line.Give(BuildFrame(kExchangeAddress, kOk));
  Demand(line.messages().state().reply_ok && line.sent() == sent + 2);
  return 0;
}
