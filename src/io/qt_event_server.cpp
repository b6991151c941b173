#include "io/qt_event_server.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QCoreApplication>
#include <QDateTime>
#include <QTimerEvent>

namespace tarvok::io {

QtEventServer::QtEventServer() {
  clock_.start();
}

std::int64_t QtEventServer::Tick_ms() {
  return clock_.elapsed();
}

WallClock QtEventServer::Now() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  // Qt counts weekdays from Monday 1 to Sunday 7.
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), date.dayOfWeek() % 7};
}

EventServer::TimerId QtEventServer::StartTimer(int interval_ms, std::function<void()> handler) {
  return Add(std::max(interval_ms, 1), false, std::move(handler));
}

EventServer::TimerId QtEventServer::CallLater(int delay_ms, std::function<void()> handler) {
  return Add(std::max(delay_ms, 0), true, std::move(handler));
}

EventServer::TimerId QtEventServer::Add(int interval_ms, bool once, std::function<void()> handler) {
  const int qt_id = startTimer(interval_ms, Qt::PreciseTimer);
  const TimerId id = ++last_id_;
  timers_[id] = {std::move(handler), once, qt_id};
  by_qt_id_[qt_id] = id;
  return id;
}

void QtEventServer::StopTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  killTimer(found->second.qt_id);
  by_qt_id_.erase(found->second.qt_id);
  timers_.erase(found);
}

void QtEventServer::timerEvent(QTimerEvent* event) {
  const auto found = by_qt_id_.find(event->timerId());
  if (found == by_qt_id_.end()) return;
  const TimerId id = found->second;
  // The handler may stop its own timer, so run a copy.
  const std::function<void()> handler = timers_[id].handler;
  if (timers_[id].once) StopTimer(id);
  handler();
}

bool QtEventServer::ServeUntil(const std::function<bool()>& done, std::int64_t timeout_ms) {
  const bool forever = timeout_ms < 0;
  const std::int64_t deadline_ms = Tick_ms() + timeout_ms;
  // The deadline is an ordinary event: it wakes the loop, which then checks the clock.
  bool armed = false;
  TimerId alarm = 0;
  bool served_once = false;
  while (!done()) {
    const std::int64_t left_ms = deadline_ms - Tick_ms();
    if (!forever && left_ms <= 0) {
      if (served_once) break;
      QCoreApplication::processEvents(QEventLoop::AllEvents);
      served_once = true;
      continue;
    }
    if (!forever && !armed) {
      constexpr std::int64_t kLongest_ms = std::numeric_limits<int>::max();
      alarm = CallLater(static_cast<int>(std::min(left_ms, kLongest_ms)), [&armed] { armed = false; });
      armed = true;
    }
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    served_once = true;
  }
  if (armed) StopTimer(alarm);
  return done();
}

}  // namespace tarvok::io
