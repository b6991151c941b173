#pragma once

#include <string_view>

#include "sections/uses.h"

namespace tarvok::sections {

/** The project section whose keys hold what belongs to the exchange as a whole. */
inline constexpr std::string_view kSystemConfig = "SystemConfig";

}  // namespace tarvok::sections
