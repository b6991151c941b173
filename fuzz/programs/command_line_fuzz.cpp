// Any arguments to tarvokctl: one command runs with valid arguments, or none runs and the command line is
// wrong. The commands themselves are replaced.

#include "fuzz/demand.h"
#include "fuzz/programs/words.h"

#define main tarvokctl_main
#include "programs/tarvokctl.cpp"
#include "tests/floors.h"
#undef main

namespace tarvok::ctl {
namespace {

int commands = 0;

int Ran(bool good = true) {
  Demand(good);
  ++commands;
  return kDone;
}

bool IsVersion(int version) {
  return version >= kLowestVersion && version <= kHighestVersion;
}

bool IsSection(int section) {
  return section >= 1 && section <= 46;
}

}  // namespace

using Text = const std::string&;

int New(ProjectStore&, Text, Text, bool) {
  return Ran();
}
int Get(ProjectStore&, Text, Text, Text) {
  return Ran();
}
int Set(ProjectStore&, Text, Text, Text, Text) {
  return Ran();
}
int ListSections(int version) {
  return Ran(IsVersion(version));
}
int Check(ProjectStore&, Text) {
  return Ran();
}
int Diff(ProjectStore&, Text, Text, bool) {
  return Ran();
}
int Edit(ProjectStore&, Text, Text, Text, Text) {
  return Ran();
}
int Encode(ProjectStore&, Text, int section, int version, Text) {
  return Ran(IsSection(section) && IsVersion(version));
}
int Decode(ProjectStore&, Text, int section, int version, Text) {
  return Ran(IsSection(section) && IsVersion(version));
}
int EncodeAll(ProjectStore&, Text, int version, Text) {
  return Ran(IsVersion(version));
}
int DecodeAll(ProjectStore&, Text, int version, Text) {
  return Ran(IsVersion(version));
}
int Send(ProjectStore&, Text, const SendPart* part, const SessionOptions& options) {
  return Ran(part == nullptr || !options.compare);
}
int Load(ProjectStore&, Text, Text, bool, bool, const SessionOptions& options) {
  return Ran(!options.compare);
}
int SendBilling(ProjectStore&, Text, Text, const SessionOptions&) {
  return Ran();
}
int Ping(ProjectStore&, Text, const SessionOptions&) {
  return Ran();
}

std::string SystemFileLine() {
  return {};
}
std::string SystemFile() {
  return "/s/system.tvs";
}
int Misused(std::string_view) {
  return kWrongCommandLine;
}
int EndOutput(int status) {
  return status;
}
std::string EditHelp() {
  return {};
}

}  // namespace tarvok::ctl

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarvok;
  using namespace tarvok::fuzz;
  const fuzz::Silence silence;
  fuzz::Words words("tarvokctl", data, size);
  ctl::commands = 0;
  ctl::CommandLine line(words.argc, words.argv());
  const int status = line.Run();
  // If nothing was wrong and nothing ran, the help was requested.
  Demand(status == ctl::kWrongCommandLine ? ctl::commands == 0 : status == ctl::kDone && ctl::commands <= 1);
  return 0;
}
