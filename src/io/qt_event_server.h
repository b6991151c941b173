#pragma once

#include <functional>
#include <map>

#include <QElapsedTimer>
#include <QObject>

#include "io/uses.h"
#include "link/event_server.h"

namespace tarvok::io {

/**
 * Time and events from Qt's loop. An application object must exist. ServeUntil may be nested; it sleeps until
 * something happens and then wakes at once. A timer does not fire again while its own handler serves events.
 */
class QtEventServer : public QObject, public EventServer {
 public:
  QtEventServer();

  std::int64_t Tick_ms() override;
  WallClock Now() override;
  TimerId StartTimer(int interval_ms, std::function<void()> handler) override;
  TimerId CallLater(int delay_ms, std::function<void()> handler) override;
  void StopTimer(TimerId timer) override;
  bool ServeUntil(const std::function<bool()>& done, std::int64_t timeout_ms) override;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  struct Timer {
    std::function<void()> handler;
    bool once = false;
    int qt_id = 0;
  };

  TimerId Add(int interval_ms, bool once, std::function<void()> handler);

  QElapsedTimer clock_;
  // Qt soon reuses the ids of dead timers, so a stale id could stop a different timer. Our ids are never
  // reused.
  TimerId last_id_ = 0;
  std::map<TimerId, Timer> timers_;
  std::map<int, TimerId> by_qt_id_;
};

}  // namespace tarvok::io
