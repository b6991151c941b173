#include "programs/ctl/exit_status.h"

#include <iostream>
#include <string>

namespace tarvok::ctl {
namespace {

int Say(std::string_view reason, int status) {
  std::string line;
  for (const char c : reason) {
    if (c == '\n') line += ' ';
    if (c != '\r' && c != '\n') line += c;
  }
  std::cerr << "tarvokctl: " << line << '\n';
  return status;
}

}  // namespace

int Fail(std::string_view reason) {
  return Say(reason, kFailed);
}

int Misused(std::string_view reason) {
  return Say(reason, kWrongCommandLine);
}

}  // namespace tarvok::ctl
