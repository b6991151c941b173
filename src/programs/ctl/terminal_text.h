#pragma once

#include <string>
#include <string_view>

namespace tarvok::ctl {

/** Text of a project as UTF-8 for a terminal, through the user's code page. Control characters are shown as
 * pictures of themselves, so that no text of a project can steer the terminal. */
std::string ToUtf8(std::string_view bytes);
bool IsUtf8(std::string_view text);
/** UTF-8 as text of a project; a letter that the page does not have is dropped. */
std::string FromUtf8(std::string_view text);

}  // namespace tarvok::ctl
