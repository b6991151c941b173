#include "programs/ctl/exit_status.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

#include "programs/ctl/terminal_text.h"
#include "programs/uses.h"
#include "store/one_line.h"

namespace tarvok::ctl {

void Tell(std::string_view line) {
  std::cerr << "tarvokctl: " << ShownLine(InOneLine(line)) << '\n';
}

void Note(std::string_view line) {
  std::cerr << "note: " << ShownLine(InOneLine(line)) << '\n';
}

int Fail(std::string_view reason) {
  Tell(reason);
  return kFailed;
}

int Misused(std::string_view reason) {
  Tell(reason);
  return kWrongCommandLine;
}

int EndOutput(int status) {
  std::cout.flush();
  const bool failed_before = !std::cout || std::ferror(stdout) != 0;
  const bool failed_now = std::fflush(stdout) != 0;
  if (!failed_before && !failed_now) return status;
  std::string reason = status == kDone ? "all was done, but standard output could not be written"
                                       : "standard output could not be written";
  if (failed_now) reason.append(": ").append(std::strerror(errno));
  Tell(reason);
  return status == kDone ? kFailed : status;
}

}  // namespace tarvok::ctl
