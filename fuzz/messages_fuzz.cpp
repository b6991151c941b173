// Any answers of an exchange to any operation, as messages in a stream of any split: an operation ends, says that it went
// well only where its answer came, and what it sends is always a message.

#include "fuzz/answered_operation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarvok::fuzz::RunAnswered(tarvok::link::LinkMode::kLan, {data, size});
  return 0;
}
