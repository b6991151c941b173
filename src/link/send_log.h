#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "link/uses.h"

namespace tarvok::link {

/** The history of a session, `send.log`. Lines end with CR LF. Where it goes is the program's matter; with no
 * sink it is written nowhere. The link layer writes only while the debug switch is on. */
class SendLog {
 public:
  using Sink = std::function<void(std::string_view)>;

  explicit SendLog(Sink sink = {}) : sink_(std::move(sink)) {}

  void Line(std::string_view text) {
    if (!sink_) return;
    sink_(std::string(text) + "\r\n");
  }
  /** Without a line end: the next text follows on the line. */
  void Text(std::string_view text) {
    if (sink_) sink_(text);
  }
  void DebugLine(std::string_view text) {
    if (debug_) Line(text);
  }

  bool debug() const { return debug_; }
  void set_debug(bool debug) { debug_ = debug; }

 private:
  Sink sink_;
  bool debug_ = false;
};

/** Each byte as upper-case hexadecimal without leading zero, followed by "H ". */
std::string HexDump(std::span<const std::uint8_t> bytes);

}  // namespace tarvok::link
