#pragma once

#include <string>
#include <string_view>

#include "project/uses.h"
#include "sections/field.h"
#include "store/ini_text.h"

namespace tarvok::project {

/** Why no editor and no load could have left this value in the field; "" where one could. "F" is no value. */
std::string WrongValue(const Field& field, std::string_view text);

/** Why the value points nowhere in this project; "" for a good reference, and for a value that is none. */
std::string WrongTarget(const IniText& project, const Field& field, std::string_view text);

/** What a coded value is made of: its entry and its two parts. The entry is nullptr where no code fits. */
struct CodedParts {
  const CodedValue* entry = nullptr;
  std::string_view argument;
  std::string_view behind_comma;
};
CodedParts TakeApart(const Field& field, std::string_view text);

}  // namespace tarvok::project
