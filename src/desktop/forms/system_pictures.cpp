// The holidays as a year and the times of the week as bars: pictures of the rows of the system configuration.

#include <algorithm>
#include <array>
#include <vector>

#include <QDate>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/forms/pictures.h"
#include "desktop/look/colours.h"
#include "editors/system/system_config_editor.h"
#include "store/number_text.h"

namespace tarvok::desktop {
namespace {

using editors::system_config_editor::SystemConfigEditor;

constexpr int kMonths = 12;
constexpr int kMostDays = 31;
constexpr int kLeapYear = 2024;  // a holiday has no year, and may be 29 February

/** One row per month, one cell per day; a click or Space toggles a holiday. */
class Calendar : public FormView::Picture {
 public:
  explicit Calendar(SystemConfigEditor& form) : form_(form) {
    setObjectName(QStringLiteral("Calendar"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(kLabel + kMostDays * 14, kMonths * 15 + 24);
    Say();
  }
  void Refresh() override {
    Say();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QPalette& colours = palette();
    QFont small = font();
    small.setPixelSize(std::clamp(std::min(Cell().height() * 6, Cell().width() * 7) / 10, 6, 12));
    painter.setFont(small);
    const auto holidays = form_.Holidays();
    for (int month = 1; month <= kMonths; ++month) {
      painter.setPen(colours.color(QPalette::Text));
      painter.drawText(QRect(0, (month - 1) * Cell().height(), kLabel - 4, Cell().height()),
                       Qt::AlignLeft | Qt::AlignVCenter, QLocale::c().monthName(month, QLocale::ShortFormat));
      for (int day = 1; day <= QDate(kLeapYear, month, 1).daysInMonth(); ++day) {
        const bool on = std::find(holidays.begin(), holidays.end(), std::pair(month, day)) != holidays.end();
        const QRect place = PlaceOf(month, day).adjusted(0, 0, -1, -1);
        painter.fillRect(place, colours.color(on ? QPalette::Highlight : QPalette::Base));
        painter.setPen(on ? colours.color(QPalette::HighlightedText) : MutedText(colours));
        painter.drawText(place, Qt::AlignCenter, QString::number(day));
      }
    }
    painter.setPen(QPen(colours.color(hasFocus() ? QPalette::Text : QPalette::Mid), hasFocus() ? 2 : 1));
    painter.drawRect(PlaceOf(month_, day_).adjusted(0, 0, -1, -1));
    painter.setFont(font());
    painter.setPen(MutedText(colours));
    painter.drawText(QRect(0, kMonths * Cell().height() + 2, width(), 20), Qt::AlignLeft, accessibleName());
  }
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && MoveTo(event->position().toPoint()))
      form_.TurnHoliday(month_, day_);
  }
  void mouseMoveEvent(QMouseEvent* event) override { MoveTo(event->position().toPoint()); }
  void keyPressEvent(QKeyEvent* event) override {
    const QDate now(kLeapYear, month_, day_);
    switch (event->key()) {
      case Qt::Key_Left:
        return Current(now.addDays(-1));
      case Qt::Key_Right:
        return Current(now.addDays(1));
      case Qt::Key_Up:
        return Current(now.addMonths(-1));
      case Qt::Key_Down:
        return Current(now.addMonths(1));
      case Qt::Key_Space:
        return form_.TurnHoliday(month_, day_);
      default:
        return FormView::Picture::keyPressEvent(event);
    }
  }
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  static constexpr int kLabel = 34;

  QSize Cell() const { return {(width() - kLabel) / kMostDays, (height() - 24) / kMonths}; }
  QRect PlaceOf(int month, int day) const {
    return {QPoint(kLabel + (day - 1) * Cell().width(), (month - 1) * Cell().height()), Cell()};
  }
  bool MoveTo(QPoint point) {
    if (point.x() < kLabel) return false;
    const QDate day(kLeapYear, point.y() / Cell().height() + 1, (point.x() - kLabel) / Cell().width() + 1);
    if (!day.isValid()) return false;
    Current(day);
    return true;
  }
  void Current(QDate day) {
    month_ = day.month();
    day_ = day.day();
    Refresh();
  }
  void Say() {
    const auto holidays = form_.Holidays();
    const bool on = std::find(holidays.begin(), holidays.end(), std::pair(month_, day_)) != holidays.end();
    setAccessibleName(QStringLiteral("%1 %2 is %3")
                          .arg(QLocale::c().monthName(month_))
                          .arg(day_)
                          .arg(on ? QStringLiteral("a holiday") : QStringLiteral("not a holiday")));
  }

  SystemConfigEditor& form_;
  int month_ = 1;
  int day_ = 1;
};

/** One bar of 24 hours per weekday, light where the day service is on. */
class Week : public FormView::Picture {
 public:
  explicit Week(SystemConfigEditor& form) : form_(form) {
    setObjectName(QStringLiteral("Week"));
    setAccessibleName(QStringLiteral("Day and night over the week"));
    setMinimumSize(320, kWeekdays * 17 + 18);
  }
  void Refresh() override { update(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QPalette& colours = palette();
    const int height = (this->height() - 18) / kWeekdays;
    const int left = fontMetrics().horizontalAdvance(QStringLiteral("Wed  "));
    const auto x = [&](int minute) { return left + (width() - left - 8) * minute / kDay_min; };
    const QColor night = Mix(colours.color(QPalette::Text), colours.color(QPalette::Base), 35);
    const QColor day = Mix(colours.color(QPalette::Highlight), colours.color(QPalette::Base), 45);
    for (int weekday = 0; weekday < kWeekdays; ++weekday) {
      const int top = weekday * height;
      painter.setPen(colours.color(QPalette::Text));
      painter.drawText(QRect(0, top, left, height), Qt::AlignLeft | Qt::AlignVCenter,
                       QString::fromStdString(
                           std::string(system_times::kWeekdayTables[static_cast<std::size_t>(weekday)].key)));
      const auto [begins, ends] = form_.Times(weekday);
      const int from = Minute(begins);
      const int to = Minute(ends);
      const auto bar = [&](int first, int last, const QColor& colour) {
        painter.fillRect(QRect(QPoint(x(first), top + 2), QPoint(x(last) - 1, top + height - 3)), colour);
      };
      bar(0, kDay_min, night);
      if (from < to) {
        bar(from, to, day);
      } else if (from > to) {  // the day service continues after midnight
        bar(from, kDay_min, day);
        bar(0, to, day);
      }
    }
    painter.setPen(MutedText(colours));
    for (int hour = 0; hour <= 24; hour += 6) {
      const int at = x(hour * 60);
      painter.drawLine(at, 0, at, height * kWeekdays);
      painter.drawText(QRect(at - 20, height * kWeekdays + 2, 40, 16), Qt::AlignCenter,
                       QString::number(hour));
    }
  }

 private:
  static constexpr int kDay_min = 24 * 60;

  /** Minutes since midnight; an invalid time counts as midnight. */
  static int Minute(const std::string& time) {
    if (time.size() != 4) return 0;
    return std::min(static_cast<int>(Val(time.substr(0, 2)) * 60 + Val(time.substr(2))), kDay_min);
  }

  SystemConfigEditor& form_;
};

}  // namespace

FormView::Picture* MakeCalendar(FormControls& form) {
  auto* config = dynamic_cast<SystemConfigEditor*>(&form);
  return config != nullptr ? new Calendar(*config) : nullptr;
}

FormView::Picture* MakeWeek(FormControls& form) {
  auto* config = dynamic_cast<SystemConfigEditor*>(&form);
  return config != nullptr ? new Week(*config) : nullptr;
}

}  // namespace tarvok::desktop
