#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "project/difference.h"
#include "project/uses.h"

namespace tarvok::project {

/** What the two projects of a comparison are called. */
struct SideNames {
  std::string_view first = "first";
  std::string_view second = "second";
};

/** A difference in one line of UTF-8. `letters` makes letters of the project's bytes. */
std::string DifferenceLine(const Difference& difference,
                           const std::function<std::string(std::string_view)>& letters, SideNames names = {});

}  // namespace tarvok::project
