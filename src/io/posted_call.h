#pragma once

#include <functional>
#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include "io/uses.h"

namespace tarvok::io {

/**
 * A call that the event loop makes once, however often it was posted. The destructor cancels a pending call;
 * the call itself may destroy the object.
 */
class PostedCall : public QObject {
 public:
  explicit PostedCall(std::function<void()> call) : call_(std::move(call)) {}

  void Post() {
    if (std::exchange(posted_, true)) return;
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }

 protected:
  void customEvent(QEvent*) override {
    posted_ = false;
    const std::function<void()> call = call_;
    call();
  }

 private:
  std::function<void()> call_;
  bool posted_ = false;
};

}  // namespace tarvok::io
