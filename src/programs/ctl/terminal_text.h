#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "programs/uses.h"

namespace tarvok::ctl {

/**
 * Converts a project's text to UTF-8 for a terminal, through the user's code page. Control characters are
 * shown as control pictures, so that no text of a project can control the terminal.
 */
std::string ToUtf8(std::string_view bytes);
/**
 * Converts an argument to a project's text, including control pictures as shown by ToUtf8. nullopt if it is
 * not UTF-8 or the page lacks one of its letters.
 */
std::optional<std::string> BytesOf(std::string_view argument);
/**
 * Prepares one of the program's own lines for a terminal: paths are UTF-8, but text from a project or a line
 * often is not. Shows control characters like ToUtf8.
 */
std::string ShownLine(std::string_view line);

}  // namespace tarvok::ctl
