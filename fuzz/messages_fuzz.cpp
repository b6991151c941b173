// Any replies of an exchange to any operation, as messages in a stream split anywhere: an operation ends,
// reports success only if its reply came, and sends only valid messages.

#include "fuzz/answered_operation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarvok::fuzz::RunAnswered(tarvok::link::LinkMode::kLan, {data, size});
  return 0;
}
