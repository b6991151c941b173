#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/floors.h"

namespace tarvok::bench {

/** The example project. Ends the program if it can't be read. */
std::string HotelText();

/** Text of at least `size` bytes like that of the example: its sections again and again, each time under other names. */
std::string TextOfSize(std::size_t size);

/** Section and key of every value in a text, each once, in file order. */
std::vector<std::pair<std::string, std::string>> AllKeys(const std::string& text);

/** A file of the benchmark's own that goes with it. */
class ScratchFile {
 public:
  /** In the current folder, which ../run-bench makes on a real disk: a save to memory costs nothing. */
  explicit ScratchFile(const std::string& bytes);
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace tarvok::bench
