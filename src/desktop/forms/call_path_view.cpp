#include "desktop/forms/call_path_view.h"

#include <algorithm>
#include <utility>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "desktop/look/colours.h"

namespace tarvok::desktop {
namespace {

constexpr int kBoxWidth = 160;
constexpr int kSmallWidth = 58;  // width of an end with a word or two, such as a trunk
constexpr int kAcross = 30;      // gap between two steps, for the arrow
constexpr int kDown = 8;
constexpr int kPadding = 6;
constexpr int kSmallInRow = 6;
constexpr std::size_t kSmallText = 9;

bool IsSmall(const PathNode& node) {
  return node.children.empty() && node.text.size() <= kSmallText;
}

}  // namespace

class CallPathView::Canvas : public QWidget {
 public:
  Canvas(const CodePage& page, std::function<void(const Place&)> go) : page_(page), go_(std::move(go)) {
    setObjectName(QStringLiteral("CallPath"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
  }

  void ShowPath(PathNode path) {
    path_ = std::move(path);
    boxes_.clear();
    current_ = 0;
    QSize size(0, 0);
    if (!path_.text.empty()) PlaceNode(path_, kPadding, kPadding, -1, size);
    setMinimumSize(size + QSize(kPadding, kPadding));
    resize(minimumSize());
    Say();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Box& box : boxes_) {
      if (box.from >= 0) DrawArrow(painter, boxes_[static_cast<std::size_t>(box.from)], box);
    }
    for (std::size_t i = 0; i < boxes_.size(); ++i) DrawBox(painter, boxes_[i], i == current_);
  }
  void mousePressEvent(QMouseEvent* event) override {
    const std::size_t at = BoxAt(event->position());
    if (event->button() != Qt::LeftButton || at >= boxes_.size()) return;
    current_ = at;
    Say();
    update();
    Go();
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const bool over = BoxAt(event->position()) < boxes_.size();
    setCursor(over ? Qt::PointingHandCursor : Qt::ArrowCursor);
  }
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Left:
        return Step([](const QPointF& way) { return way.x() < 0 ? -way.x() + 3 * std::abs(way.y()) : -1; });
      case Qt::Key_Right:
        return Step([](const QPointF& way) { return way.x() > 0 ? way.x() + 3 * std::abs(way.y()) : -1; });
      case Qt::Key_Up:
        return Step([](const QPointF& way) { return way.y() < 0 ? -way.y() + 3 * std::abs(way.x()) : -1; });
      case Qt::Key_Down:
        return Step([](const QPointF& way) { return way.y() > 0 ? way.y() + 3 * std::abs(way.x()) : -1; });
      case Qt::Key_Return:
      case Qt::Key_Enter:
        return Go();
      default:
        return QWidget::keyPressEvent(event);
    }
  }
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  struct Box {
    QRectF place;
    const PathNode* node;
    int from;  // index of the step before, -1 for none
    bool arrow = true;
  };

  QString Text(const PathNode& node) const { return page_.ToLetters(node.text); }

  int HeightOf(const PathNode& node, int width) const {
    const QRect needed = fontMetrics().boundingRect(QRect(0, 0, width - 2 * kPadding, 1000),
                                                    Qt::AlignLeft | Qt::TextWordWrap, Text(node));
    return needed.height() + 2 * kPadding;
  }

  /** Places a step at `x`, `y` and all that follow it to the right; returns their height. */
  int PlaceNode(const PathNode& node, int x, int y, int from, QSize& size) {
    const int own_height = HeightOf(node, kBoxWidth);
    const auto me = static_cast<int>(boxes_.size());
    boxes_.push_back({QRectF(x, y, kBoxWidth, own_height), &node, from});
    const int right = x + kBoxWidth + kAcross;
    int below = y;
    const bool small =
        node.children.size() > 1 && std::all_of(node.children.begin(), node.children.end(), IsSmall);
    if (small) {
      below += PlaceSmall(node, right, y, me, size);
    } else {
      for (const PathNode& child : node.children) below += PlaceNode(child, right, below, me, size) + kDown;
      if (!node.children.empty()) below -= kDown;
    }
    const int height = std::max(own_height, below - y);
    size = size.expandedTo(QSize(x + kBoxWidth + kPadding, y + height + kPadding));
    return height;
  }

  /** Places many short ends in rows. */
  int PlaceSmall(const PathNode& node, int x, int y, int from, QSize& size) {
    const int line = fontMetrics().height() + kPadding;
    int at = 0;
    for (const PathNode& child : node.children) {
      const int row = at / kSmallInRow;
      const QRectF place(x + (at % kSmallInRow) * (kSmallWidth + 4), y + row * (line + 4), kSmallWidth, line);
      boxes_.push_back({place, &child, from, at == 0});
      size = size.expandedTo(
          QSize(static_cast<int>(place.right()) + kPadding, static_cast<int>(place.bottom()) + kPadding));
      ++at;
    }
    return (at + kSmallInRow - 1) / kSmallInRow * (line + 4);
  }

  void DrawArrow(QPainter& painter, const Box& from, const Box& to) {
    if (!to.arrow) return;
    const QPointF start(from.place.right(), from.place.center().y());
    const QPointF end(to.place.left() - 2, to.place.center().y());
    QPainterPath line(start);
    const double middle = (start.x() + end.x()) / 2;
    line.cubicTo({middle, start.y()}, {middle, end.y()}, end);
    const QColor colour = MutedText(palette());
    painter.setPen(QPen(colour, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(line);
    painter.setBrush(colour);
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(QPolygonF({end, end + QPointF(-7, -4), end + QPointF(-7, 4)}));
  }

  void DrawBox(QPainter& painter, const Box& box, bool current) {
    const QPalette& colours = palette();
    const bool first = box.from < 0;
    const bool marked = current && hasFocus();
    painter.setPen(QPen(colours.color(marked ? QPalette::Highlight : QPalette::Mid), marked ? 2 : 1));
    painter.setBrush(first ? Mix(colours.color(QPalette::Highlight), colours.color(QPalette::Base), 18)
                           : QBrush(colours.color(QPalette::Base)));
    painter.drawRoundedRect(box.place, 5, 5);
    painter.setPen(colours.color(QPalette::Text));
    painter.drawText(box.place.adjusted(kPadding, kPadding / 2.0, -kPadding, -kPadding / 2.0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, Text(*box.node));
  }

  std::size_t BoxAt(QPointF point) const {
    const auto found =
        std::find_if(boxes_.begin(), boxes_.end(), [&](const Box& box) { return box.place.contains(point); });
    return static_cast<std::size_t>(found - boxes_.begin());
  }

  /** Goes to the box with the smallest `distance`; a negative one means that a box is not in that
   * direction. */
  template <typename Distance>
  void Step(Distance distance) {
    std::size_t best = current_;
    double least = 0;
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      const double away =
          i == current_ ? -1 : distance(boxes_[i].place.center() - boxes_[current_].place.center());
      if (away < 0 || (best != current_ && away >= least)) continue;
      best = i;
      least = away;
    }
    current_ = best;
    Say();
    update();
  }
  void Go() {
    if (current_ < boxes_.size()) go_(boxes_[current_].node->place);
  }
  void Say() {
    setAccessibleName(current_ < boxes_.size()
                          ? QStringLiteral("Path of the call: ") + Text(*boxes_[current_].node)
                          : QStringLiteral("Path of the call"));
  }

  const CodePage& page_;
  std::function<void(const Place&)> go_;
  PathNode path_;
  std::vector<Box> boxes_;
  std::size_t current_ = 0;
};

CallPathView::CallPathView(const CodePage& page, std::function<void(const Place&)> go)
    : canvas_(new Canvas(page, std::move(go))) {
  setWidget(canvas_);
  setMinimumHeight(150);
  setFrameShape(QFrame::StyledPanel);
  setBackgroundRole(QPalette::Window);
  setFocusProxy(canvas_);
}

void CallPathView::ShowPath(PathNode path) {
  canvas_->ShowPath(std::move(path));
}

}  // namespace tarvok::desktop
