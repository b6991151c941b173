#include "desktop/overview/rack_view.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QToolTip>

#include "desktop/look/colours.h"
#include "desktop/look/shown_text.h"

namespace tarvok::desktop {
namespace {

constexpr double kFrame = 10;  // border of the rack
constexpr double kGap = 4;     // between two slots
constexpr double kHead = 20;   // height of the slot's number
constexpr int kFoot = 22;      // height of "used / all ports"
constexpr int kStripe = 4;     // height of the stripe in the family's colour
constexpr int kLampPitch = 9;  // horizontal distance; vertically the lamps share the height of the card
constexpr int kLamp = 6;
constexpr int kLampRows = 16;  // more ports than in two columns take more columns

}  // namespace

RackView::RackView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("RackView"));
  setAccessibleName(QStringLiteral("Rack"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize RackView::sizeHint() const {
  return {16 * 58 + static_cast<int>(2 * kFrame), 252};
}

QSize RackView::minimumSizeHint() const {
  return {16 * 40, 252};
}

void RackView::ShowSummary(const ProjectSummary& summary) {
  summary_ = summary;
  QStringList cards;
  for (int slot = 0; slot < kSlots; ++slot) {
    if (!summary_.slots[static_cast<std::size_t>(slot)].empty()) cards += Describe(slot);
  }
  setAccessibleDescription(cards.isEmpty() ? QStringLiteral("All slots are empty")
                                           : cards.join(QStringLiteral("; ")));
  update();
}

QString RackView::Describe(int slot) const {
  const CardSummary& card = summary_.slots[static_cast<std::size_t>(slot)];
  const QString place = QStringLiteral("Slot %1: ").arg(slot + 1);
  if (card.empty()) return place + QStringLiteral("empty");
  return place + QStringLiteral("%1, %2 of %3 ports used, %4 free")
                     .arg(Words(card.label))
                     .arg(card.ports_used())
                     .arg(card.ports())
                     .arg(card.ports() - card.ports_used());
}

QColor RackView::FamilyColour(CardFamily family, const QPalette& palette) {
  const bool dark = IsDark(palette);
  switch (family) {
    case CardFamily::kDigital:
      return dark ? QColor(0x3F, 0xB8, 0xA5) : QColor(0x14, 0x84, 0x74);
    case CardFamily::kTrunk:
      return dark ? QColor(0xE0, 0xA2, 0x4A) : QColor(0xB8, 0x6E, 0x0C);
    case CardFamily::kEAndM:
      return dark ? QColor(0xD9, 0x7C, 0x6B) : QColor(0xB0, 0x49, 0x36);
    case CardFamily::kE1:
      return dark ? QColor(0xA8, 0x92, 0xE0) : QColor(0x6B, 0x4F, 0xB3);
    case CardFamily::kVoiceMail:
      return dark ? QColor(0xCF, 0x82, 0xB4) : QColor(0xA1, 0x3F, 0x7F);
    case CardFamily::kSlic:
      break;
  }
  return dark ? QColor(0x5B, 0xA6, 0xE8) : QColor(0x1F, 0x6F, 0xB5);
}

QRectF RackView::SlotRect(int slot) const {
  const QRectF inside = QRectF(rect()).adjusted(kFrame, kFrame, -kFrame, -kFrame);
  const double pitch = (inside.width() + kGap) / kSlots;
  return {inside.left() + slot * pitch, inside.top(), pitch - kGap, inside.height()};
}

void RackView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor window = palette().color(QPalette::Window);
  const QColor text = palette().color(QPalette::WindowText);
  painter.setPen(Mix(text, window, 22));
  painter.setBrush(Mix(text, window, IsDark(palette()) ? 8 : 7));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
  painter.setRenderHint(QPainter::Antialiasing, false);  // cards have sharp edges
  for (int slot = 0; slot < kSlots; ++slot) PaintSlot(painter, slot);
}

void RackView::PaintSlot(QPainter& painter, int slot) const {
  const QRectF area = SlotRect(slot);
  const CardSummary& card = summary_.slots[static_cast<std::size_t>(slot)];
  painter.setPen(MutedText(palette()));
  painter.drawText(QRectF(area.left(), area.top() - 2, area.width(), kHead), Qt::AlignCenter,
                   QString::number(slot + 1));
  const QRect body = area.adjusted(0, kHead, -1, -1).toRect();
  if (!card.empty()) {
    PaintCard(painter, body, card);
    return;
  }
  painter.setPen(Mix(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 20));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(body);
}

void RackView::PaintCard(QPainter& painter, const QRect& body, const CardSummary& card) const {
  const QColor colour = FamilyColour(card.family, palette());
  painter.setPen(Mix(colour, palette().color(QPalette::Base), 55));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRect(body);
  painter.fillRect(QRect(body.left(), body.top(), body.width() + 1, kStripe), colour);

  const QRectF inside = QRectF(body).adjusted(5, kStripe + 6, -3, -kFoot);
  PaintLamps(painter, inside, card);

  painter.setPen(palette().color(QPalette::Text));
  painter.save();
  const double label_width = QFontMetricsF(painter.font()).height();
  painter.translate(inside.right() - label_width, inside.bottom());
  painter.rotate(-90);
  painter.drawText(QRectF(0, 0, inside.height(), label_width), Qt::AlignVCenter | Qt::AlignRight,
                   Words(card.label));
  painter.restore();

  painter.setPen(MutedText(palette()));
  painter.drawText(QRect(body.left(), body.bottom() - kFoot, body.width(), kFoot), Qt::AlignCenter,
                   QStringLiteral("%1/%2").arg(card.ports_used()).arg(card.ports()));
}

/** Paints one lamp, which is drawn for all lamps of its kind. */
QPixmap RackView::Lamp(const QColor& colour, bool used) const {
  const double scale = devicePixelRatioF();
  QPixmap pixmap(QSize(kLamp, kLamp) * scale);
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(used ? QPen(Qt::NoPen) : Mix(colour, palette().color(QPalette::Base), 60));
  painter.setBrush(used ? QBrush(colour) : QBrush());
  const double inset = used ? 0 : 0.5;
  painter.drawEllipse(QRectF(0, 0, kLamp, kLamp).adjusted(inset, inset, -inset, -inset));
  return pixmap;
}

void RackView::PaintLamps(QPainter& painter, const QRectF& area, const CardSummary& card) const {
  const QColor colour = FamilyColour(card.family, palette());
  const QPixmap used = Lamp(colour, true);
  const QPixmap free = Lamp(colour, false);
  const int columns = (card.ports() + kLampRows - 1) / kLampRows;
  const int rows = (card.ports() + columns - 1) / columns;
  const double down = area.height() / kLampRows;
  for (int port = 0; port < card.ports(); ++port) {
    const int column = port / rows;
    const QPointF corner(area.left() + column * kLampPitch, area.top() + port % rows * down);
    painter.drawPixmap(corner.toPoint(), card.used[static_cast<std::size_t>(port)] ? used : free);
  }
}

bool RackView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  for (int slot = 0; slot < kSlots; ++slot) {
    if (!SlotRect(slot).contains(help->pos())) continue;
    QToolTip::showText(help->globalPos(), Describe(slot), this, SlotRect(slot).toRect());
    return true;
  }
  QToolTip::hideText();
  return true;
}

}  // namespace tarvok::desktop
