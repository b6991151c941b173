#pragma once

#include <optional>
#include <string>

#include "link/line_settings.h"
#include "sessions/transfer.h"
#include "sessions/uses.h"

namespace tarvok::sessions {

/** The serial line settings of the project; nullopt if its speed is invalid. */
std::optional<LineSettings> SerialLine(const ConnectionSettings& settings);

/**
 * Opens the connection that the project's settings specify and tests it: port or socket, link, idle message.
 * If the exchange cannot be reached, shows the reason and returns false; the caller cleans up.
 */
bool OpenConnection(Transfer& transfer);

/** Why a port did not open, as ": " and the port's own message, to be appended to a session's failure. */
std::string PortReason(Transfer& transfer);

/** Opens the serial port of the settings silently; true if it is open. */
bool OpenSerialPort(Transfer& transfer);
/** Connects to the address in the settings and logs it. Only the system's own timeout applies. */
bool OpenSocket(Transfer& transfer);

}  // namespace tarvok::sessions
