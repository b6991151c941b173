#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "programs/uses.h"

namespace tarvok::ctl {

/** Text of a project as UTF-8 for a terminal, through the user's code page. Control characters are shown as
 * pictures of themselves, so that no text of a project can steer the terminal. */
std::string ToUtf8(std::string_view bytes);
/** An argument as text of a project, pictures of control characters as ToUtf8 shows them included. Nothing where it is not
 * UTF-8 or the page lacks a letter of it. */
std::optional<std::string> BytesOf(std::string_view argument);
/** A line of the program's own for a terminal: paths are UTF-8, what comes from a project or a line often is not. Control
 * characters as in ToUtf8. */
std::string ShownLine(std::string_view line);

}  // namespace tarvok::ctl
