#pragma once

#include <string>
#include <string_view>

#include <QString>

#include "desktop/uses.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/** Converts a path to text for the user, and back. */
QString PathText(const std::string& path);
std::string PathBytes(const QString& text);

/** A folder as text for the user, with "~" for the home folder. */
QString FolderText(const QString& folder);

/** A text of the program itself, which is ASCII or UTF-8. */
QString Words(std::string_view text);

/** A message that may quote a path or a value of a project: valid UTF-8 is read as such, anything else in the
 * code page. Line ends become "\n". */
QString MessageText(std::string_view text, const CodePage& page);

}  // namespace tarvok::desktop
