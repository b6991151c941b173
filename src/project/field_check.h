#pragma once

#include <string>
#include <string_view>

#include "project/uses.h"
#include "sections/field.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** Why no editor and no load writes this value into the field; "" if it is valid. The value must be set (not
 * "F"). */
std::string WrongValue(const Field& field, std::string_view text);

/** Why the value is a dangling reference in this project; "" if it is not one. */
std::string WrongTarget(const IniText& project, const Field& field, std::string_view text);

/** The entry of a coded value and its two parts. The entry is nullptr if the code is unknown. */
struct CodedParts {
  const CodedValue* entry = nullptr;
  std::string_view argument;
  std::string_view after_comma;
};
CodedParts TakeApart(const Field& field, std::string_view text);

}  // namespace tarvok::project
