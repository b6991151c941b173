#include "programs/ctl/terminal_text.h"

#include <QString>
#include <QStringDecoder>

#include "io/code_page.h"
#include "io/qt_settings.h"
#include "programs/uses.h"

namespace tarvok::ctl {
namespace {

constexpr char16_t kControlPictures = 0x2400;
constexpr char16_t kDeletePicture = 0x2421;

const CodePage& Page() {
  static const CodePage& page = []() -> const CodePage& {
    QtSettings settings;
    return CodePage::Of(settings);
  }();
  return page;
}

std::string WithPictures(QString letters) {
  for (QChar& letter : letters) {
    if (letter.unicode() < 0x20) {
      letter = QChar(static_cast<char16_t>(kControlPictures + letter.unicode()));
    } else if (letter.unicode() == 0x7F) {
      letter = QChar(kDeletePicture);
    } else if (letter.unicode() >= 0x80 && letter.unicode() < 0xA0) {
      letter = QChar(QChar::ReplacementCharacter);  // a byte that the page leaves undefined
    }
  }
  return letters.toStdString();
}

/** nullopt if the text is not UTF-8. */
std::optional<QString> Letters(std::string_view text) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
  QString letters = utf8(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  if (utf8.hasError()) return std::nullopt;
  return letters;
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
  return WithPictures(Page().ToLetters(bytes));
}

std::optional<std::string> BytesOf(std::string_view argument) {
  std::optional<QString> letters = Letters(argument);
  if (!letters) return std::nullopt;
  for (QChar& letter : *letters) {
    const char16_t unit = letter.unicode();
    if (unit >= kControlPictures && unit < kControlPictures + 0x20) letter = QChar(unit - kControlPictures);
    if (unit == kDeletePicture) letter = QChar(0x7F);
    if (!Page().HasLetter(letter)) return std::nullopt;
  }
  return Page().ToBytes(*letters);
}

std::string ShownLine(std::string_view line) {
  const std::optional<QString> letters = Letters(line);
  return letters ? WithPictures(*letters) : ToUtf8(line);
}

}  // namespace tarvok::ctl
