#pragma once

#include <string>
#include <string_view>

#include <QString>

#include "desktop/uses.h"
#include "io/code_page.h"

namespace tarvok::desktop {

/** A path as people see it, and back. */
QString PathText(const std::string& path);
std::string PathBytes(const QString& text);

/** A folder for people: their own stands as "~". */
QString FolderText(const QString& folder);

/** A text of the program itself: ASCII, or UTF-8. */
QString Words(std::string_view text);

/** A message that may quote a path or a value of the project: UTF-8 where it is that, else letters of the
 * page. Line ends become single ones. */
QString MessageText(std::string_view text, const CodePage& page);

}  // namespace tarvok::desktop
