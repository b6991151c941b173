#pragma once

#include <functional>
#include <string>

#include <QObject>
#include <QProcess>
#include <QTimer>

#include "desktop/uses.h"
#include "desktop/window/desktop_parts.h"

namespace tarvok::desktop {

/** Runs the practice exchange as a separate program on the loopback address. It ends with this object. */
class PracticeProcess : public QObject {
 public:
  enum class State { kOff, kStarting, kReady };
  static constexpr const char* kHost = "127.0.0.1";

  explicit PracticeProcess(const DesktopParts& parts);
  ~PracticeProcess() override;

  /** Starts it if it is not running. The result is reported by `on_change`. */
  void Start();
  void Stop();
  State state() const { return state_; }
  /** TCP port for "LAN"; 0 unless ready. */
  int port() const { return port_; }
  /** Why it is not running, as text for the user; "" if nothing went wrong. */
  const QString& problem() const { return problem_; }

  /** Sets the function that is called after each change of state, port or problem. */
  void set_on_change(std::function<void()> on_change) { on_change_ = std::move(on_change); }

 private:
  void Run(int port);
  void ReadAnswer();
  void Ended();
  void Change(State state, int port, const QString& problem);

  const DesktopParts& parts_;
  std::function<void()> on_change_;
  QProcess process_;
  QTimer patience_;
  State state_ = State::kOff;
  int asked_port_ = 0;
  int port_ = 0;
  QString problem_;
};

}  // namespace tarvok::desktop
