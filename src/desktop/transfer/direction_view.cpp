#include "desktop/transfer/direction_view.h"

#include <QPainter>

#include "desktop/look/colours.h"

namespace tarvok::desktop {
namespace {

constexpr int kStep_ms = 100;
constexpr int kArrows = 5;
constexpr double kEndWidth = 62;

}  // namespace

DirectionView::DirectionView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Direction"));
  setAccessibleName(QStringLiteral("Direction of the transfer"));
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  Stop();
  connect(&picture_timer_, &QTimer::timeout, this, [this] {
    step_ = (step_ + 1) % kArrows;
    update();
  });
}

void DirectionView::Start(bool to_exchange) {
  to_exchange_ = to_exchange;
  step_ = 0;
  picture_timer_.start(kStep_ms);
  setAccessibleDescription(to_exchange ? QStringLiteral("Sending to the exchange")
                                       : QStringLiteral("Loading from the exchange"));
  setToolTip(accessibleDescription());
  update();
}

void DirectionView::Stop() {
  picture_timer_.stop();
  setAccessibleDescription(QStringLiteral("No transfer"));
  setToolTip({});
  update();
}

void DirectionView::PaintEnd(QPainter& painter, const QRectF& place, const QString& name) const {
  painter.setPen(Mix(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 40));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(place, Qt::AlignCenter, name);
}

void DirectionView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF all = QRectF(rect()).adjusted(0, 8, 0, -8);
  PaintEnd(painter, {all.left(), all.top(), kEndWidth, all.height()}, QStringLiteral("Project"));
  PaintEnd(painter, {all.right() - kEndWidth, all.top(), kEndWidth, all.height()}, QStringLiteral("PBX"));

  const QColor idle = Mix(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 25);
  const double left = all.left() + kEndWidth;
  const double pitch = (all.width() - 2 * kEndWidth) / (kArrows + 1);
  for (int i = 0; i < kArrows; ++i) {
    const int place = to_exchange_ ? i : kArrows - 1 - i;
    const bool lit = picture_timer_.isActive() && (place == step_ || place == (step_ + 1) % kArrows);
    painter.setPen(QPen(lit ? palette().color(QPalette::Highlight) : idle, 2, Qt::SolidLine, Qt::RoundCap));
    const double tip = to_exchange_ ? 3 : -3;
    const QPointF at(left + (i + 1) * pitch, all.center().y());
    painter.drawLine(at + QPointF(-tip, -5), at + QPointF(tip, 0));
    painter.drawLine(at + QPointF(tip, 0), at + QPointF(-tip, 5));
  }
}

}  // namespace tarvok::desktop
