#include "io/code_page.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include <QStringDecoder>

namespace tarvok::io {
namespace {

constexpr std::size_t kAscii = 128;
constexpr std::size_t kSpecials = 32;  // bytes 0x80 to 0x9F, which follow no rule
using Specials = std::array<char16_t, kSpecials>;

constexpr Specials kWestern = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr Specials kThai = {0x20AC, 0x0081, 0x0082, 0x0083, 0x0084, 0x2026, 0x0086, 0x0087,
                            0x0088, 0x0089, 0x008A, 0x008B, 0x008C, 0x008D, 0x008E, 0x008F,
                            0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                            0x0098, 0x0099, 0x009A, 0x009B, 0x009C, 0x009D, 0x009E, 0x009F};

constexpr char16_t WesternLetter(std::size_t byte) {
  return static_cast<char16_t>(byte);
}

constexpr char16_t ThaiLetter(std::size_t byte) {
  constexpr std::size_t kThaiShift = 0x0E01 - 0xA1;
  constexpr std::size_t kFirstGap = 0xDB;
  constexpr std::size_t kLastGap = 0xDE;
  constexpr std::size_t kSecondGap = 0xFC;
  constexpr std::size_t kPrivate = 0xF8C1;  // the letters of the undefined bytes, in sequence
  if (byte == 0xA0) return 0x00A0;
  if (byte >= kSecondGap)
    return static_cast<char16_t>(kPrivate + kLastGap - kFirstGap + 1 + byte - kSecondGap);
  if (byte >= kFirstGap && byte <= kLastGap) return static_cast<char16_t>(kPrivate + byte - kFirstGap);
  return static_cast<char16_t>(byte + kThaiShift);
}

constexpr CodePage::UpperHalf MakeUpperHalf(const Specials& specials, char16_t (*letter)(std::size_t)) {
  CodePage::UpperHalf half{};
  for (std::size_t i = 0; i < half.size(); ++i) half[i] = i < kSpecials ? specials[i] : letter(kAscii + i);
  return half;
}

constexpr CodePage kOwnPages[] = {{"Windows-1252", MakeUpperHalf(kWestern, WesternLetter)},
                                  {"Windows-874", MakeUpperHalf(kThai, ThaiLetter)}};

/** Pages that Qt may support, depending on how it was built. */
constexpr const char* kPagesOfQt[] = {"Windows-1250", "Windows-1251", "Windows-1253", "Windows-1254",
                                      "Windows-1255", "Windows-1256", "Windows-1257", "Windows-1258"};

/**
 * The page as Qt decodes it, byte by byte. A byte that Qt leaves undefined gets a letter that no other byte
 * has.
 */
std::optional<CodePage> PageOfQt(const char* name) {
  constexpr char16_t kOpenLetters = 0xF800;
  constexpr std::size_t kControls = 0xA0;  // if undefined, the bytes below it are control characters
  if (!QStringDecoder(name).isValid()) return std::nullopt;
  CodePage::UpperHalf half{};
  for (std::size_t i = 0; i < half.size(); ++i) {
    const std::size_t byte = kAscii + i;
    const auto open = static_cast<char16_t>(byte < kControls ? byte : kOpenLetters + byte);
    QStringDecoder decoder(name, QStringConverter::Flag::Stateless);
    const char one = static_cast<char>(byte);
    const QString letter = decoder.decode(QByteArrayView(&one, 1));
    const bool known = letter.size() == 1 && !decoder.hasError() && letter[0] != QChar::ReplacementCharacter;
    half[i] = known ? letter[0].unicode() : open;
  }
  return CodePage(name, half);
}

std::vector<CodePage> AllPages() {
  std::vector<CodePage> pages(std::begin(kOwnPages), std::end(kOwnPages));
  for (const char* name : kPagesOfQt) {
    if (const std::optional<CodePage> page = PageOfQt(name)) pages.push_back(*page);
  }
  return pages;
}

std::optional<char> ByteOf(const CodePage& page, QChar letter) {
  const char16_t unit = letter.unicode();
  if (unit < kAscii) return static_cast<char>(unit);
  const auto found = std::find(page.letters().begin(), page.letters().end(), unit);
  if (found == page.letters().end()) return std::nullopt;
  return static_cast<char>(kAscii + static_cast<std::size_t>(found - page.letters().begin()));
}

}  // namespace

QString CodePage::ToLetters(std::string_view bytes) const {
  QString letters;
  letters.reserve(static_cast<qsizetype>(bytes.size()));
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    letters += QChar(byte < kAscii ? static_cast<char16_t>(byte) : letters_[byte - kAscii]);
  }
  return letters;
}

CodePage::Taken CodePage::Take(const QString& letters) const {
  Taken taken;
  const auto count = letters.size();
  for (qsizetype i = 0; i < count; ++i) {
    if (const std::optional<char> byte = ByteOf(*this, letters[i])) {
      taken.bytes += *byte;
      continue;
    }
    const bool pair = letters[i].isHighSurrogate() && i + 1 < count && letters[i + 1].isLowSurrogate();
    const QString letter = letters.mid(i, pair ? 2 : 1);
    if (!taken.lacking.contains(letter)) taken.lacking += letter;
    if (pair) ++i;
  }
  return taken;
}

QString CodePage::WhyLacking(const QString& lacking) const {
  return QStringLiteral("the code page %1 does not have: %2")
      .arg(QString::fromUtf8(name_.data(), static_cast<qsizetype>(name_.size())), lacking);
}

bool CodePage::HasLetter(QChar letter) const {
  return ByteOf(*this, letter).has_value();
}

const std::vector<CodePage>& CodePage::All() {
  static const std::vector<CodePage> kPages = AllPages();
  return kPages;
}

const CodePage& CodePage::Of(SettingsStore& settings) {
  return Find(settings.Get(kCodePageGroup, kCodePageKey));
}

const CodePage& CodePage::Find(std::string_view name) {
  // If the program uses one of our own pages, there is no need to ask Qt.
  for (const CodePage& page : kOwnPages) {
    if (page.name() == name) return page;
  }
  if (name.empty()) return kOwnPages[0];
  const auto found =
      std::find_if(All().begin(), All().end(), [&](const CodePage& page) { return page.name() == name; });
  return found == All().end() ? kOwnPages[0] : *found;
}

}  // namespace tarvok::io
