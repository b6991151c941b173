#include "desktop/transfer/practice_process.h"

#include <utility>

#include <QFileInfo>
#include <QRegularExpression>

#include "desktop/look/shown_text.h"

namespace tarvok::desktop {
namespace {

constexpr int kUsualPort = 4001;  // the port of the example project
constexpr int kAnyPort = 0;
constexpr int kPatience_ms = 10'000;
constexpr int kFarewell_ms = 3'000;

}  // namespace

PracticeProcess::PracticeProcess(const DesktopParts& parts) : parts_(parts) {
  process_.setStandardInputFile(QProcess::nullDevice());
  connect(&process_, &QProcess::readyReadStandardOutput, this, [this] { ReadAnswer(); });
  connect(&process_, &QProcess::finished, this, [this] { Ended(); });
  connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) {
      Change(State::kOff, 0,
             QStringLiteral("The practice exchange does not start: %1").arg(process_.errorString()));
    }
  });
  patience_.setSingleShot(true);
  connect(&patience_, &QTimer::timeout, this, [this] {
    Stop();
    Change(State::kOff, 0, QStringLiteral("The practice exchange does not answer."));
  });
}

PracticeProcess::~PracticeProcess() {
  on_change_ = nullptr;
  Stop();
}

void PracticeProcess::Start() {
  if (state_ != State::kOff) return;
  const QString program = PathText(parts_.practice_program);
  if (!QFileInfo(program).isExecutable()) {
    Change(State::kOff, 0,
           QStringLiteral("The practice exchange is not installed next to this program: %1 does not exist.")
               .arg(program));
    return;
  }
  Run(kUsualPort);
}

void PracticeProcess::Run(int port) {
  asked_port_ = port;
  Change(State::kStarting, 0, {});
  patience_.start(kPatience_ms);
  process_.start(PathText(parts_.practice_program),
                 {QStringLiteral("--version"), QStringLiteral("110"), QStringLiteral("--store"),
                  PathText(parts_.practice_folder), QStringLiteral("--listen"), QString::fromLatin1(kHost),
                  QStringLiteral("--lan"), QString::number(port)});
}

void PracticeProcess::Stop() {
  patience_.stop();
  if (process_.state() == QProcess::NotRunning) return;
  const QSignalBlocker quiet(process_);
  process_.terminate();  // it writes its memory before it ends
  if (!process_.waitForFinished(kFarewell_ms)) process_.kill();
  process_.waitForFinished(kFarewell_ms);
  Change(State::kOff, 0, {});
}

void PracticeProcess::ReadAnswer() {
  if (state_ != State::kStarting || !process_.canReadLine()) return;
  static const QRegularExpression kReady(QStringLiteral("^ready .*lan=[^ ]*:(\\d+)"));
  const QRegularExpressionMatch match = kReady.match(QString::fromUtf8(process_.readLine()));
  if (!match.hasMatch()) return;
  patience_.stop();
  Change(State::kReady, match.captured(1).toInt(), {});
}

void PracticeProcess::Ended() {
  patience_.stop();
  const QString said = QString::fromLocal8Bit(process_.readAllStandardError()).trimmed();
  if (state_ == State::kStarting && asked_port_ == kUsualPort) {
    Run(kAnyPort);  // another program listens on the usual port
    return;
  }
  Change(State::kOff, 0, QStringLiteral("The practice exchange ended. %1").arg(said).trimmed());
}

void PracticeProcess::Change(State state, int port, const QString& problem) {
  state_ = state;
  port_ = port;
  problem_ = problem;
  if (on_change_) on_change_();
}

}  // namespace tarvok::desktop
