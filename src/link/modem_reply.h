#pragma once

#include <string>

#include "link/uses.h"

namespace tarvok::link {

/** What the modem's last line of text said. */
struct ModemReply {
  static constexpr int kNone = 0;  // nothing yet, or an unknown line
  static constexpr int kConnect = 1;
  static constexpr int kBusy = 2;
  static constexpr int kNoCarrier = 3;
  static constexpr int kNoDialTone = 4;
  static constexpr int kOk = 5;

  int result = kNone;
  std::string connect_text;  // the whole line of a CONNECT
};

}  // namespace tarvok::link
