// Which tenant may call which, as a square of cells.

#include <algorithm>
#include <vector>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/forms/pictures.h"
#include "desktop/look/colours.h"
#include "sections/routing/tenan.h"

namespace tarvok::desktop {
namespace {

constexpr int kWindow = 16;
constexpr int kBlock = kWindow + 1;  // a header and its cells
constexpr int kSmallestCell = 15;

/** Rows call columns. The arrow keys move, Space toggles a cell. Shows the form's window of 16 by 16 cells
 * or, if there is room, all four such blocks, each with its own headers. */
class TenantMatrix : public FormView::Picture {
 public:
  explicit TenantMatrix(FormControls& form) : form_(form) {
    setObjectName(QStringLiteral("TenantMatrix"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(kBlock * kSmallestCell + 8, kBlock * kSmallestCell + 30);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    cells_.reserve(static_cast<std::size_t>(kTenants) * kTenants);
    for (int row = 1; row <= kTenants; ++row) {
      for (int column = 1; column <= kTenants; ++column)
        cells_.push_back(form.Find<CheckBox>({"cell", row, column}));
    }
    across_ = form.Find<ScrollBar>({"HScroll1"});
    down_ = form.Find<ScrollBar>({"VScroll1"});
    Say();
  }
  void Refresh() override {
    Say();
    update();
  }

 protected:
  void resizeEvent(QResizeEvent*) override {
    // If all cells are visible, the scroll bars are not needed.
    const int side = std::min(width() - 8, height() - 30) / (kTenants / kWindow * kBlock);
    whole_ = side >= kSmallestCell;
    cell_ = whole_ ? side : std::max(kSmallestCell, std::min(width() - 8, height() - 30) / kBlock);
    for (ScrollBar* bar : {across_, down_}) {
      if (bar != nullptr) bar->visible = !whole_;
    }
    QMetaObject::invokeMethod(
        this, [this] { form_.Settle(); }, Qt::QueuedConnection);
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QPalette& colours = palette();
    QFont small = font();
    small.setPixelSize(std::clamp(cell_ * 6 / 10, 8, 13));
    painter.setFont(small);
    const QColor set = colours.color(QPalette::Highlight);
    const QColor clear = colours.color(QPalette::Base);
    const QColor ink = colours.color(QPalette::Text);
    const QColor edge = Mix(ink, clear, 25);
    for (int i = 1; i <= Shown(); ++i) {
      painter.setPen(MutedText(colours));
      for (int head = 0; head < Units(Shown()); head += kBlock) {
        painter.drawText(QRect(Units(i) * cell_, head * cell_, cell_, cell_), Qt::AlignCenter,
                         QString::number(First(across_) + i - 1));
        painter.drawText(QRect(head * cell_, Units(i) * cell_, cell_ - 2, cell_),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(First(down_) + i - 1));
      }
      for (int j = 1; j <= Shown(); ++j) {
        const QRect place(Units(j) * cell_, Units(i) * cell_, cell_, cell_);
        const CheckBox* cell = Cell(First(down_) + i - 1, First(across_) + j - 1);
        painter.fillRect(place, edge);
        painter.fillRect(place.adjusted(1, 1, -1, -1), cell != nullptr && cell->on ? set : clear);
      }
    }
    const int row = row_ - First(down_) + 1;
    const int column = column_ - First(across_) + 1;
    if (row >= 1 && row <= Shown() && column >= 1 && column <= Shown()) {
      painter.setPen(QPen(hasFocus() ? ink : Mix(ink, clear, 50), 2));
      painter.drawRect(QRect(Units(column) * cell_ - 1, Units(row) * cell_ - 1, cell_ + 1, cell_ + 1));
    }
    painter.setFont(font());
    painter.setPen(ink);
    painter.drawText(QRect(4, (Units(Shown()) + 1) * cell_ + 4, width() - 8, 24),
                     Qt::AlignLeft | Qt::AlignVCenter, words_);
  }

  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    const QPoint point = event->position().toPoint();
    if (MoveTo(point)) {
      TurnOver();
    } else {
      ClickHead(point);
    }
  }
  void mouseMoveEvent(QMouseEvent* event) override { MoveTo(event->position().toPoint()); }

  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Left:
        return Step(0, -1);
      case Qt::Key_Right:
        return Step(0, 1);
      case Qt::Key_Up:
        return Step(-1, 0);
      case Qt::Key_Down:
        return Step(1, 0);
      case Qt::Key_Space:
        return TurnOver();
      default:
        return FormView::Picture::keyPressEvent(event);
    }
  }
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  int Shown() const { return whole_ ? kTenants : kWindow; }
  int First(const ScrollBar* bar) const { return whole_ || bar == nullptr ? 1 : bar->current + 1; }
  CheckBox* Cell(int row, int column) const {
    return cells_[static_cast<std::size_t>((row - 1) * kTenants + column - 1)];
  }
  /** Position of the n-th shown row or column in cells; each block begins with a header. */
  static int Units(int shown) { return shown + (shown - 1) / kWindow; }
  /** The row or column at a position in cells, 0 for a header, -1 after the last one. */
  int ShownAt(int units) const {
    if (units < 0 || units > Units(Shown())) return -1;
    return units % kBlock == 0 ? 0 : units - units / kBlock;
  }
  bool MoveTo(QPoint point) {
    const int row = ShownAt(point.y() / cell_);
    const int column = ShownAt(point.x() / cell_);
    if (row < 1 || column < 1) return false;
    Current(First(down_) + row - 1, First(across_) + column - 1);
    return true;
  }
  /** Clicks a header: toggles the 16 cells of its row or column in its block, as the form's buttons do in the
   * window. */
  void ClickHead(QPoint point) {
    const int row = ShownAt(point.y() / cell_);
    const int column = ShownAt(point.x() / cell_);
    const bool of_row = column == 0;
    const int at = of_row ? row : column;
    if (at < 1 || (of_row ? column : row) != 0) return;
    if (whole_ && down_ != nullptr && across_ != nullptr) {  // moves the window to the block
      down_->current = point.y() / cell_ / kBlock * kWindow;
      across_->current = point.x() / cell_ / kBlock * kWindow;
      down_->changed();
    }
    Control* head = form_.Find({of_row ? "cmdRow" : "cmdCol", (at - 1) % kWindow});
    if (head != nullptr) form_.Click(*head);
  }
  void Current(int row, int column) {
    if (row == row_ && column == column_) return;
    row_ = row;
    column_ = column;
    Refresh();
  }
  void Step(int rows, int columns) {
    Current(std::clamp(row_ + rows, 1, kTenants), std::clamp(column_ + columns, 1, kTenants));
    if (whole_) return;
    const auto follow = [&](ScrollBar* bar, int at) {
      const int first = std::clamp(bar->current, at - kWindow, at - 1);
      if (first != bar->current) form_.ChooseEntry(*bar, first);
    };
    if (down_ != nullptr) follow(down_, row_);
    if (across_ != nullptr) follow(across_, column_);
  }
  void TurnOver() {
    if (CheckBox* cell = Cell(row_, column_); cell != nullptr) form_.Click(*cell);
  }
  void Say() {
    const CheckBox* cell = Cell(row_, column_);
    words_ = cell != nullptr ? QString::fromStdString(cell->caption) : QString();
    setAccessibleName(words_);
  }

  FormControls& form_;
  std::vector<CheckBox*> cells_;
  ScrollBar* across_ = nullptr;
  ScrollBar* down_ = nullptr;
  int cell_ = kSmallestCell;
  int row_ = 1;
  int column_ = 1;
  bool whole_ = false;
  QString words_;
};

}  // namespace

FormView::Picture* MakeTenantMatrix(FormControls& form) {
  return new TenantMatrix(form);
}

}  // namespace tarvok::desktop
