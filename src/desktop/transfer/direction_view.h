#pragma once

#include <QTimer>
#include <QWidget>

#include "desktop/uses.h"

namespace tarvok::desktop {

/** Computer and exchange, with arrows between them that move in the direction of the data during a
 * session. */
class DirectionView : public QWidget {
 public:
  explicit DirectionView(QWidget* parent = nullptr);

  /** `to_exchange`: true for a send, false for a load. */
  void Start(bool to_exchange);
  void Stop();

  QSize sizeHint() const override { return {200, 48}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintEnd(QPainter& painter, const QRectF& place, const QString& name) const;

  QTimer picture_timer_;
  bool to_exchange_ = true;
  int step_ = 0;
};

}  // namespace tarvok::desktop
