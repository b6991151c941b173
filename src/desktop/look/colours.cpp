#include "desktop/look/colours.h"

#include <string>

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

#include "desktop/look/plain_style.h"
#include "desktop/window/desktop_parts.h"

namespace tarvok::desktop {
namespace {

QPalette MakePalette(const QColor& window, const QColor& base, const QColor& text, const QColor& accent,
                     const QColor& link) {
  QPalette palette(window);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, Mix(base, window, 60));
  palette.setColor(QPalette::Button, Mix(text, window, 6));
  palette.setColor(QPalette::ToolTipBase, base);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, Mix(text, window, 42));
  }
  palette.setColor(QPalette::PlaceholderText, Mix(text, base, 66));
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, Mix(accent, window, 40));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, link);
  return palette;
}

QPalette LightPalette() {
  return MakePalette(QColor(0xF3, 0xF4, 0xF6), Qt::white, QColor(0x1D, 0x22, 0x29), QColor(0x1F, 0x6F, 0xB5),
                     QColor(0x1B, 0x62, 0xA3));
}

QPalette DarkPalette() {
  return MakePalette(QColor(0x24, 0x28, 0x2E), QColor(0x1B, 0x1E, 0x23), QColor(0xE4, 0xE7, 0xEB),
                     QColor(0x2F, 0x7F, 0xC4), QColor(0x7A, 0xB8, 0xF0));
}

}  // namespace

void ApplyColours(SettingsStore& settings) {
  const std::string choice = settings.Get(desktop_key::kGroup, desktop_key::kColours);
  const bool light = choice == kColourChoices[1];
  if (!light && choice != kColourChoices[2]) {
    if (dynamic_cast<PlainStyle*>(QApplication::style()) == nullptr) {
      QApplication::setStyle(new PlainStyle(QApplication::style()));
    }
    QApplication::setPalette(QApplication::style()->standardPalette());
    return;
  }
  // The only style of Qt that uses the palette for everything it draws.
  QApplication::setStyle(new PlainStyle(QStyleFactory::create(QStringLiteral("Fusion"))));
  QApplication::setPalette(light ? LightPalette() : DarkPalette());
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor Mix(const QColor& first, const QColor& second, int part) {
  const auto mix = [part](int a, int b) { return (a * part + b * (100 - part)) / 100; };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()),
          mix(first.blue(), second.blue())};
}

QColor MutedText(const QPalette& palette) {
  return Mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 68);
}

}  // namespace tarvok::desktop
