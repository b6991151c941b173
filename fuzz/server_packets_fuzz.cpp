// Like the messages target, but in packets of the relay server, split anywhere.

#include "fuzz/answered_operation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarvok::fuzz::RunAnswered(tarvok::link::LinkMode::kServer, {data, size});
  return 0;
}
