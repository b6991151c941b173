#pragma once

#include <optional>
#include <string>

#include "link/line_settings.h"
#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** How the project's serial line is set; nothing where its speed is none. */
std::optional<LineSettings> SerialLine(const ConnectionSettings& settings);

/** Opens the way that the project's settings name and tests it: port or socket, link, idle message. False
 * where the exchange is not reached, after its words; the caller cleans up. */
bool OpenConnection(Transfer& transfer);

/** Behind a port that did not open: ": " and its own words for why. They go behind the words of a session's failure. */
std::string PortReason(Transfer& transfer);

/** Opens the serial port of the settings, without a word; whether it is open. */
bool OpenSerialPort(Transfer& transfer);
/** Connects to the address of the settings, with its words. There is no time limit but the system's own. */
bool OpenSocket(Transfer& transfer);

}  // namespace tarvok::sessions
