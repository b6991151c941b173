#pragma once

#include <cstdint>
#include <iostream>
#include <streambuf>
#include <string>
#include <vector>

#include "tests/floors.h"

namespace tarvok::fuzz {

/** The arguments of a command line, one per line of the input, in the form that a program's main receives. */
class Words {
 public:
  Words(const char* program, const std::uint8_t* data, std::size_t size) : words_{program} {
    std::string text(reinterpret_cast<const char*>(data), size);
    for (std::size_t start = 0; start < text.size();) {
      const std::size_t end = std::min(text.find('\n', start), text.size());
      // An argument ends at its first NUL, as in any process.
      words_.emplace_back(text.substr(start, end - start).c_str());
      start = end + 1;
    }
    for (std::string& word : words_) pointers_.push_back(word.data());
    argc = static_cast<int>(pointers_.size());
    pointers_.push_back(nullptr);
  }

  int argc = 0;
  char** argv() { return pointers_.data(); }

 private:
  std::vector<std::string> words_;
  std::vector<char*> pointers_;
};

/** Suppresses a program's output during the life of the object. */
class Silence {
 public:
  Silence() : out_(std::cout.rdbuf(&nowhere_)), err_(std::cerr.rdbuf(&nowhere_)) {}
  ~Silence() {
    std::cout.rdbuf(out_);
    std::cerr.rdbuf(err_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  struct Nowhere : std::streambuf {
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
  };
  Nowhere nowhere_;
  std::streambuf* out_;
  std::streambuf* err_;
};

}  // namespace tarvok::fuzz
