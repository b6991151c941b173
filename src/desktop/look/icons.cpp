#include "desktop/look/icons.h"

#include <algorithm>

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace tarvok::desktop {
namespace {

constexpr double kGrid = 16;  // width and height of the grid on which the pictures are drawn
constexpr double kLine = 1.2;

/** The parts of a picture: areas, which are tinted, and lines. */
struct Drawing {
  QPainterPath face;
  QPainterPath lines;
};

QPainterPath Lines(std::initializer_list<std::initializer_list<QPointF>> polylines) {
  QPainterPath path;
  for (const auto& points : polylines) path.addPolygon(QPolygonF(QList<QPointF>(points)));
  return path;
}

QPainterPath Face(std::initializer_list<QPointF> corners) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QList<QPointF>(corners)));
  path.closeSubpath();
  return path;
}

Drawing Draw(Picture picture) {
  switch (picture) {
    case Picture::kNewProject:  // a sheet with a folded corner
      return {Face({{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}),
              Lines({{{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}})};
    case Picture::kOpenProject:  // a folder, its front lowered
      return {Face({{3.5, 6.5}, {14.5, 6.5}, {12.5, 13.5}, {1.5, 13.5}}),
              Lines({{{1.5, 13.5}, {1.5, 2.5}, {6, 2.5}, {7.5, 4.5}, {12.5, 4.5}, {12.5, 6.5}}})};
    case Picture::kCloseProject:  // a sheet that is crossed out
      return {Face({{3.5, 1.5}, {12.5, 1.5}, {12.5, 14.5}, {3.5, 14.5}}),
              Lines({{{5.8, 5.8}, {10.2, 10.2}}, {{10.2, 5.8}, {5.8, 10.2}}})};
    case Picture::kExit:  // an arrow out of a door
      return {{},
              Lines({{{9.5, 4.5}, {9.5, 1.5}, {2.5, 1.5}, {2.5, 14.5}, {9.5, 14.5}, {9.5, 11.5}},
                     {{6, 8}, {14, 8}},
                     {{11, 5}, {14, 8}, {11, 11}}})};
    case Picture::kComputer:  // a screen on its foot
      return {Face({{1.5, 2.5}, {14.5, 2.5}, {14.5, 10.5}, {1.5, 10.5}}),
              Lines({{{8, 10.5}, {8, 13.5}}, {{4.5, 13.5}, {11.5, 13.5}}})};
    case Picture::kMore:  // two arrow heads to the right
      return {{}, Lines({{{3.5, 4}, {7.5, 8}, {3.5, 12}}, {{8.5, 4}, {12.5, 8}, {8.5, 12}}})};
    case Picture::kClear:  // a cross
      return {{}, Lines({{{4.5, 4.5}, {11.5, 11.5}}, {{11.5, 4.5}, {4.5, 11.5}}})};
  }
  return {};
}

class PictureEngine : public QIconEngine {
 public:
  explicit PictureEngine(Picture picture) : picture_(picture) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
    const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QPalette palette = QGuiApplication::palette();
    const QColor line =
        palette.color(group, mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    QColor face = palette.color(group, QPalette::Highlight);
    face.setAlphaF(mode == QIcon::Normal || mode == QIcon::Active ? 0.22F : 0.1F);
    const Drawing drawing = Draw(picture_);
    const double side = std::min(area.width(), area.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(area).center() - QPointF(side / 2, side / 2));
    painter->scale(side / kGrid, side / kGrid);
    painter->setPen(QPen(line, kLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(face);
    painter->drawPath(drawing.face);
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(drawing.lines);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new PictureEngine(picture_); }

 private:
  Picture picture_;
};

}  // namespace

QIcon IconOf(Picture picture) {
  return QIcon(new PictureEngine(picture));
}

}  // namespace tarvok::desktop
