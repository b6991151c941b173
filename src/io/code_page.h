#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <QString>

#include "io/uses.h"
#include "store/settings_store.h"

namespace tarvok::io {

/** Where the settings keep the page's name. */
inline constexpr std::string_view kCodePageGroup = "Desktop";
inline constexpr std::string_view kCodePageKey = "CodePage";

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
  /** What letters become in the page. */
  struct Taken {
    std::string bytes;
    QString lacking;  // the letters that the page does not have, each once; they are in no byte
  };
  Taken Take(const QString& letters) const;
  /** Says to people that the page does not have these letters. */
  QString WhyLacking(const QString& lacking) const;
  /** Letters that the page does not have are dropped: for keys, where a person sees it at once. */
  std::string ToBytes(const QString& letters) const { return Take(letters).bytes; }
  bool HasLetter(QChar letter) const;
  const UpperHalf& letters() const { return letters_; }

  /** All pages that can be chosen, the one as supplied first: two of our own, and the other single-byte pages
   * that Qt knows on this machine. */
  static const std::vector<CodePage>& All();
  /** The user's page, by the name in the settings. */
  static const CodePage& Of(SettingsStore& settings);
  /** The page of that name; the first one for a name that is not known. */
  static const CodePage& Find(std::string_view name);

 private:
  std::string_view name_;
  UpperHalf letters_;
};

}  // namespace tarvok::io
