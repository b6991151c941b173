#pragma once

#include <QWidget>

#include "desktop/overview/project_summary.h"
#include "desktop/uses.h"

namespace tarvok::desktop {

/** The front of the rack: 16 slots, each card with its type and a lamp per port, which is lit if the port is
 * used. */
class RackView : public QWidget {
 public:
  explicit RackView(QWidget* parent = nullptr);

  void ShowSummary(const ProjectSummary& summary);
  /** The colour of a card family. */
  static QColor FamilyColour(CardFamily family, const QPalette& palette);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QRectF SlotRect(int slot) const;
  void PaintSlot(QPainter& painter, int slot) const;
  void PaintCard(QPainter& painter, const QRect& body, const CardSummary& card) const;
  QPixmap Lamp(const QColor& colour, bool used) const;
  void PaintLamps(QPainter& painter, const QRectF& area, const CardSummary& card) const;
  QString Describe(int slot) const;

  ProjectSummary summary_;
};

}  // namespace tarvok::desktop
