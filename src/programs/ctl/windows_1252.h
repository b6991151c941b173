#pragma once

#include <string>
#include <string_view>

namespace tarvok::ctl {

/** Text of a project, bytes of Windows-1252, as UTF-8 for a terminal. Control characters are shown as
 * pictures of themselves, so that no text of a project can steer the terminal. */
std::string ToUtf8(std::string_view bytes);

}  // namespace tarvok::ctl
