// The desk telephone and the console with their keys, which can be clicked.

#include <vector>

#include <QGridLayout>
#include <QPainter>
#include <QPushButton>

#include "desktop/forms/pictures.h"
#include "desktop/look/colours.h"

namespace tarvok::desktop {
namespace {

/** A key with its number and function. */
class KeyButton : public QPushButton {
 public:
  KeyButton(FormControls& form, Label& control, const CodePage& page)
      : form_(form), control_(control), page_(page) {
    setObjectName(ControlName(control.id));
    setAutoDefault(false);
    setMinimumSize(64, 30);
    connect(this, &QPushButton::clicked, this, [this] { form_.Click(control_); });
    Refresh();
  }
  void Refresh() {
    const std::string& text = control_.text;
    const QString shown = page_.ToLetters(text);
    const QString number = QString::number(control_.id.index + 1);
    setAccessibleName(
        QStringLiteral("Key %1: %2").arg(number, text.empty() ? QStringLiteral("free") : shown));
    setToolTip(accessibleName());
    text_ = shown;
    number_ = number;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette& colours = palette();
    const QRectF key = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    const bool used = !text_.isEmpty();
    QColor fill = used ? Mix(colours.color(QPalette::Highlight), colours.color(QPalette::Base), 18)
                       : colours.color(QPalette::Base);
    if (isDown()) fill = Mix(colours.color(QPalette::Highlight), fill, 35);
    const bool focus = hasFocus() || underMouse();
    painter.setPen(
        QPen(focus ? colours.color(QPalette::Highlight) : colours.color(QPalette::Mid), focus ? 2 : 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(key, 4, 4);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.75);
    painter.setFont(small);
    painter.setPen(MutedText(colours));
    painter.drawText(key.adjusted(4, 1, -4, -1), Qt::AlignLeft | Qt::AlignTop, number_);
    painter.setFont(font());
    painter.setPen(colours.color(QPalette::Text));
    const QString text = fontMetrics().elidedText(text_, Qt::ElideRight, static_cast<int>(key.width()) - 8);
    painter.drawText(key.adjusted(4, 4, -4, 0), Qt::AlignCenter, text);
  }

 private:
  FormControls& form_;
  Label& control_;
  const CodePage& page_;
  QString text_;
  QString number_;
};

/** A device with keys in columns, and space for its other parts. */
class Keys : public FormView::Picture {
 public:
  Keys(FormControls& form, const CodePage& page, const std::string& name, int columns, int top) : top_(top) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(14, top + 14, 14, 14);
    grid->setSpacing(4);
    for (int i = 0;; ++i) {
      auto* control = form.Find<Label>({name, i});
      if (control == nullptr) break;
      keys_.push_back(new KeyButton(form, *control, page));
      grid->addWidget(keys_.back(), i / columns, i % columns);
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  }
  void Refresh() override {
    for (KeyButton* key : keys_) key->Refresh();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(Mix(palette().color(QPalette::Window), palette().color(QPalette::Text), 92));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 12, 12);
    if (top_ > 0) DrawHandset(painter);
  }

 private:
  /** Draws the handset at the top and the display below it. */
  void DrawHandset(QPainter& painter) {
    const QColor dark = Mix(palette().color(QPalette::Text), palette().color(QPalette::Window), 55);
    painter.setPen(Qt::NoPen);
    painter.setBrush(dark);
    const QRectF bar(24, 16, width() - 48, 14);
    painter.drawRoundedRect(bar, 7, 7);
    painter.drawRoundedRect(QRectF(16, 12, 56, 28), 10, 10);
    painter.drawRoundedRect(QRectF(width() - 72, 12, 56, 28), 10, 10);
    painter.setBrush(Mix(palette().color(QPalette::Base), palette().color(QPalette::Text), 90));
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.drawRoundedRect(QRectF(14.5, 50.5, width() - 29, top_ - 54), 4, 4);
  }

  int top_;
  std::vector<KeyButton*> keys_;
};

}  // namespace

FormView::Picture* MakeTelephone(FormControls& form, const CodePage& page) {
  constexpr int kHandsetAndDisplay = 84;
  return new Keys(form, page, "lblNum", 2, kHandsetAndDisplay);
}

FormView::Picture* MakeConsole(FormControls& form, const CodePage& page) {
  return new Keys(form, page, "lblDSS", 4, 0);
}

}  // namespace tarvok::desktop
