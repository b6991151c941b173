#pragma once

#include <string>

#include <gmock/gmock.h>

#include "io/qt_event_server.h"
#include "link/port.h"
#include "tests/floors.h"
#include "tests/matchers.h"
#include "tests/temp_folder.h"

namespace tarvok::test {

/** Upper limit for waits of something that should happen at once; reached only if a test fails. */
inline constexpr int kPatience_ms = 10'000;

/** What a port passed to its handlers. */
struct Heard {
  explicit Heard(Port& port) {
    port.set_on_bytes(
        [this](std::span<const std::uint8_t> bytes) { text.append(bytes.begin(), bytes.end()); });
    port.set_on_closed([this](std::string_view) { ++closed; });
  }

  std::string text;
  int closed = 0;
};

inline bool Send(Port& port, std::string_view text) {
  return port.Send({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

}  // namespace tarvok::test
