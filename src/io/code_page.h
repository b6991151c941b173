#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <QString>

#include "io/uses.h"
#include "store/settings_store.h"

namespace tarvok::io {

/** Where the name of the page is stored in the settings. */
inline constexpr std::string_view kCodePageGroup = "Desktop";
inline constexpr std::string_view kCodePageKey = "CodePage";

/**
 * A single-byte code page: maps the bytes of a project to letters. The lower half is always ASCII. Every byte
 * has a letter of its own, so that converting bytes to letters and back changes nothing; bytes that the page
 * leaves undefined are mapped to control or private characters.
 */
class CodePage {
 public:
  using UpperHalf = std::array<char16_t, 128>;  // the letters for bytes 128 to 255

  constexpr CodePage(std::string_view name, const UpperHalf& letters) : name_(name), letters_(letters) {}

  std::string_view name() const { return name_; }
  QString ToLetters(std::string_view bytes) const;
  /** The result of converting letters to bytes. */
  struct Taken {
    std::string bytes;
    QString lacking;  // letters that the page lacks, each once; they are left out of the bytes
  };
  Taken Take(const QString& letters) const;
  /** A message for the user that the page lacks these letters. */
  QString WhyLacking(const QString& lacking) const;
  /** Leaves out letters that the page lacks: for keys, where the user notices immediately. */
  std::string ToBytes(const QString& letters) const { return Take(letters).bytes; }
  bool HasLetter(QChar letter) const;
  const UpperHalf& letters() const { return letters_; }

  /**
   * All available pages, the default first: two of our own, and the other single-byte pages that Qt supports
   * on this machine.
   */
  static const std::vector<CodePage>& All();
  /** The page that the user has chosen in the settings. */
  static const CodePage& Of(SettingsStore& settings);
  /** The page of that name, or the first one if the name is unknown. */
  static const CodePage& Find(std::string_view name);

 private:
  std::string_view name_;
  UpperHalf letters_;
};

}  // namespace tarvok::io
