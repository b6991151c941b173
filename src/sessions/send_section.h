#pragma once

#include <string_view>

#include "sections/registry.h"
#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/**
 * The project whose sections are sent. If it cannot be read, shows a box and returns nullptr; it would
 * otherwise be sent as an empty one.
 */
std::shared_ptr<const IniText> ProjectToSend(Transfer& transfer);

/**
 * Encodes a section of the project for the exchange's version and sends it, showing its progress line. If a
 * value cannot be encoded, the log window and the history name it and nothing of the section is sent. The
 * image remains available for a comparison. Empty `dots` fill the line.
 */
bool SendSection(Transfer& transfer, const Section& section, const IniText& project,
                 std::vector<std::uint8_t>& image, std::string_view ok_dots = {},
                 std::string_view failed_dots = {});

}  // namespace tarvok::sessions
