#include "programs/ctl/terminal_text.h"

#include <QString>
#include <QStringDecoder>

#include "desktop/io/code_page.h"
#include "desktop/io/qt_settings.h"

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

}  // namespace

std::string ToUtf8(std::string_view bytes) {
  QString letters = Page().ToLetters(bytes);
  for (QChar& letter : letters) {
    if (letter.unicode() < 0x20) {
      letter = QChar(static_cast<char16_t>(kControlPictures + letter.unicode()));
    } else if (letter.unicode() == 0x7F) {
      letter = QChar(kDeletePicture);
    } else if (letter.unicode() >= 0x80 && letter.unicode() < 0xA0) {
      letter = QChar(QChar::ReplacementCharacter);  // a byte that the page leaves open
    }
  }
  return letters.toStdString();
}

bool IsUtf8(std::string_view text) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  [[maybe_unused]] const QString letters =
      decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return !decoder.hasError();
}

std::string FromUtf8(std::string_view text) {
  return Page().ToBytes(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace tarvok::ctl
