#pragma once

#include <string>
#include <string_view>

#include "sessions/uses.h"
#include "store/transport.h"

namespace tarvok::sessions {

inline constexpr std::string_view kLineEnd = "\r\n";

inline constexpr std::string_view kCheckConnection =
    "Please checked your connection\r\nCannot connect to PBX";
inline constexpr std::string_view kPortFailed = "Initial COM Port failed";
inline constexpr std::string_view kNotEstablished = "Cannot Established";
inline constexpr std::string_view kNoTelephone = "Error : Please input telephone number";
inline constexpr std::string_view kNoAddress = "Error : Please insert IP or Port";
inline constexpr std::string_view kNoModem = "Cannot connect to modem";
inline constexpr std::string_view kNoModemInTime = "Cannot connect to modem (CW)";

/** The first line of the log window: "### Send Data Config by Serial ###". */
std::string Heading(std::string_view what, const Transport& transport);

/** The dots that align the result of a progress text in the log window. */
std::string Dots(std::string_view text);

}  // namespace tarvok::sessions
