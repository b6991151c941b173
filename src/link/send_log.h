#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "link/uses.h"

namespace tarvok::link {

/**
 * The history of a session, `send.log`. Lines end with CR LF. The program supplies the sink; without one
 * nothing is logged. The link layer logs only while the debug switch is on.
 */
class SendLog {
 public:
  using Sink = std::function<void(std::string_view)>;

  explicit SendLog(Sink sink = {}) : sink_(std::move(sink)) {}

  void Line(std::string_view text) {
    if (!sink_) return;
    sink_(std::string(text) + "\r\n");
  }
  /** Logs text without a line end; the next text follows on the same line. */
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

/** Each byte in upper-case hexadecimal without leading zeros, followed by "H ". */
std::string HexDump(std::span<const std::uint8_t> bytes);

}  // namespace tarvok::link
