#pragma once

#include <string_view>

#include "sections/uses.h"

namespace tarvok::sections {

/** The project section with the settings of the exchange as a whole. */
inline constexpr std::string_view kSystemConfig = "SystemConfig";

}  // namespace tarvok::sections
