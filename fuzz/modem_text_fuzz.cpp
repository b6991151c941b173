// Any text from a modem, split anywhere: the result is that of the last complete line and a known one, and a
// line without an end does not grow without limit.

#include "fuzz/tool_line.h"
#include "tests/floors.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  if (size < 1) return 0;
  constexpr std::size_t kMostLine = 1000;
  fuzz::ToolLine line(LinkMode::kModem, data[0] >= 0x80);
  fuzz::ForEachPiece({data + 1, size - 1}, 1 + data[0] % 128, [&](std::span<const std::uint8_t> piece) {
    line.Give(piece);
    const ModemReply& reply = line.modem();
    Demand(line.link().ModemLine().size() <= kMostLine && reply.connect_text.size() <= kMostLine);
    Demand(reply.result >= ModemReply::kNone && reply.result <= ModemReply::kOk);
    Demand(reply.result != ModemReply::kConnect ||
           reply.connect_text.find("CONNECT") == 1);  // after the line feed
  });
  if (line.link().ModemLine().empty()) {
    constexpr std::string_view kBusy = "\nBUSY\r";
    line.link().Init(1, 0);
    line.Give({reinterpret_cast<const std::uint8_t*>(kBusy.data()), kBusy.size()});
    Demand(line.modem().result == ModemReply::kBusy);
  }
  return 0;
}
