#pragma once

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "store/ini_text.h"
#include "tests/floors.h"

namespace tarvok::test {

/** Expects keys of a project, told as in its text: "[Section]\nkey=value\n". "-key" is one that is not there, and
 * "F*n" stands for n fields that are not set. */
inline void ExpectKeys(const IniText& project, const std::string& text) {
  std::istringstream in(text);
  std::string section;
  for (std::string line; std::getline(in, line);) {
    for (std::size_t at = line.find("F*"); at != std::string::npos; at = line.find("F*")) {
      std::size_t digits = 0;
      std::string fields = "F";
      for (int more = std::stoi(line.substr(at + 2), &digits); more > 1; --more) fields += "|F";
      line.replace(at, 2 + digits, fields);
    }
    const std::string key = line[0] == '-' ? line.substr(1) : line.substr(0, line.find('='));
    if (line[0] == '[') {
      section = line.substr(1, line.size() - 2);
    } else {
      const std::string value(project.Get(section, key));
      EXPECT_EQ(project.HasKey(section, key) ? key + "=" + value : "-" + key, line) << section;
    }
  }
}

}  // namespace tarvok::test
