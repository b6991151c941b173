#include "hotel_text.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "store/ini_text.h"
#include "tests/floors.h"

namespace tarvok::bench {

std::string HotelText() {
  const std::ifstream file(BENCH_HOTEL, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  if (!file || text.str().empty()) {
    std::fprintf(stderr, "%s can't be read\n", BENCH_HOTEL);
    std::exit(1);
  }
  return text.str();
}

std::string TextOfSize(std::size_t size) {
  const std::string hotel = HotelText();
  std::string text = hotel;
  for (int copy = 2; text.size() < size; ++copy) {
    std::istringstream lines(hotel);
    for (std::string line; std::getline(lines, line) && text.size() < size;) {
      const std::size_t bracket = line.find(']');
      if (line.starts_with('[') && bracket != std::string::npos) line.insert(bracket, std::to_string(copy));
      text += line + '\n';
    }
  }
  return text;
}

std::vector<std::pair<std::string, std::string>> AllKeys(const std::string& text) {
  const IniText ini(text);
  std::vector<std::pair<std::string, std::string>> keys;
  for (const std::string_view section : ini.Sections()) {
    for (const IniText::Key& key : ini.Keys(section)) keys.emplace_back(section, key.name);
  }
  return keys;
}

ScratchFile::ScratchFile(const std::string& bytes) {
  static int count = 0;
  path_ = (std::filesystem::current_path() / ("scratch" + std::to_string(++count) + ".tvk")).string();
  std::ofstream(path_, std::ios::binary) << bytes;
}

ScratchFile::~ScratchFile() {
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

}  // namespace tarvok::bench
