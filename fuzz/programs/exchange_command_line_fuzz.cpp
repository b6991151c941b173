// Any arguments to tarvok-exchange: the options it would start with are within their ranges, or the command
// line is wrong.

#include "fuzz/demand.h"
#include "fuzz/programs/words.h"

#define main tarvok_exchange_main
#include "programs/tarvok_exchange.cpp"
#include "tests/floors.h"
#undef main

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  using namespace tarvok::programs;
  fuzz::Words words("tarvok-exchange", data, size);
  CLI::App app(kAbout, "tarvok-exchange");
  Options options;
  DescribeOptions(app, options);
  try {
    app.parse(words.argc, words.argv());
  } catch (const CLI::ParseError&) {
    return 0;
  }
  LevelPasswords passwords;
  if (!Interpret(options, passwords).empty()) return 0;
  Demand(options.version >= 1 && options.version <= 0xFFFF && !options.store.empty());
  for (const auto& [mode, port] : options.tcp_ports) Demand(!port || (*port >= 0 && *port <= 0xFFFF));
  Demand(options.passwords.size() <= kPasswordLevels);
  if (const auto& speed_bps = options.conditions.speed_bps)
    Demand(*speed_bps >= 50 && *speed_bps <= 4'000'000);
  if (const auto& faults = options.conditions.faults) Demand(faults->drop >= 0 && faults->drop <= 1);
  return 0;
}
