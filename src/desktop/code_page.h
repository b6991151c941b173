#pragma once

#include <array>
#include <string>
#include <string_view>

#include <QString>

namespace tarvok {

/**
 * A single-byte code page: how the bytes of a project look as letters. The lower half is ASCII everywhere.
 * Every byte has a letter of its own, so that bytes to letters and back changes nothing; bytes that the page
 * leaves open have a control or private character.
 */
class CodePage {
 public:
  using UpperHalf = std::array<char16_t, 128>;  // the letters of bytes 128 to 255

  constexpr CodePage(std::string_view name, const UpperHalf& letters) : name_(name), letters_(letters) {}

  std::string_view name() const { return name_; }
  QString ToLetters(std::string_view bytes) const;
  /** Letters that the page does not have are dropped. */
  std::string ToBytes(const QString& letters) const;
  bool HasLetter(QChar letter) const;
  const UpperHalf& letters() const { return letters_; }

  /** All pages that can be chosen, the one as supplied first. */
  static const std::array<CodePage, 2>& All();
  /** The page of that name; the first one for a name that is not known. */
  static const CodePage& Find(std::string_view name);

 private:
  std::string_view name_;
  UpperHalf letters_;
};

}  // namespace tarvok
