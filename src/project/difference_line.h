#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "project/difference.h"
#include "project/uses.h"

namespace tarvok::project {

/** Names for the two projects of a comparison. */
struct SideNames {
  std::string_view first = "first";
  std::string_view second = "second";
};

/** A difference in one line of UTF-8. `letters` converts text from the project's code page to UTF-8. */
std::string DifferenceLine(const Difference& difference,
                           const std::function<std::string(std::string_view)>& letters, SideNames names = {});

}  // namespace tarvok::project
