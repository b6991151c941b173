#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/floors.h"

namespace tarvok::bench {

/** The example project. Ends the program if it cannot be read. */
std::string HotelText();

/** A text of at least `size` bytes like the example: its sections repeated under different names. */
std::string TextOfSize(std::size_t size);

/** Section and key of every value in a text, each once, in file order. */
std::vector<std::pair<std::string, std::string>> AllKeys(const std::string& text);

/** A temporary file, deleted by the destructor. */
class ScratchFile {
 public:
  /**
   * Creates the file in the current folder, which .scripts/run-bench places on a real disk: a save to memory would
   * cost nothing.
   */
  explicit ScratchFile(const std::string& bytes);
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace tarvok::bench
