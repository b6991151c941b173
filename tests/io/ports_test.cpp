// Ports on pseudo terminals and the loopback interface.

#include <fcntl.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "io/pty_port.h"
#include "io/qt_port_maker.h"
#include "io/qt_serial_port.h"
#include "io/qt_settings.h"
#include "io/qt_tcp_port.h"
#include "io/tcp_listener.h"
#include "tests/floors.h"
#include "tests/io/io_bench.h"

namespace tarvok::test {
namespace {

namespace fs = std::filesystem;

class Serial : public ::testing::Test {
 protected:
  QtEventServer events;
  const TempFolder folder;
  const std::string link = folder / "line";
};

TEST_F(Serial, CarriesEveryByteBothWays) {
  PtyPort far(link);
  ASSERT_EQ(far.state(), PortState::kOpen) << far.error();
  QtSerialPort near(link, *ParseLineSettings("9600,n,8,1"));
  ASSERT_EQ(near.state(), PortState::kOpen) << near.error();
  Heard far_heard(far), near_heard(near);
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  EXPECT_TRUE(Send(near, all));
  EXPECT_TRUE(Send(far, all));
  events.ServeUntil([&] { return far_heard.text.size() + near_heard.text.size() >= 512; }, kPatience_ms);
  EXPECT_EQ(far_heard.text, all);
  EXPECT_EQ(near_heard.text, all);
  EXPECT_EQ(near.SetControlLines(true, true), PortAnswer::kUnsupported);
  EXPECT_EQ(near.state(), PortState::kOpen);
}

TEST_F(Serial, NextProgramGetsCleanLine) {
  PtyPort far(link);
  Heard far_heard(far);
  int released = 0;
  far.set_on_released([&] { ++released; });
  for (int round = 1; round <= 3; ++round) {
    QtSerialPort near(link, LineSettings());
    ASSERT_EQ(near.state(), PortState::kOpen) << near.error();
    Heard near_heard(near);
    Send(far, "hello");
    events.ServeUntil([&] { return !near_heard.text.empty(); }, kPatience_ms);
    EXPECT_EQ(near_heard.text, "hello");
    Send(far, "never read");
    Send(near, "last words");
    near.Close();
    events.ServeUntil([&] { return released == round; }, kPatience_ms);
    EXPECT_EQ(released, round);
    EXPECT_EQ(std::exchange(far_heard.text, {}), "last words");
  }
}

TEST_F(Serial, ClosesItselfOnceWhenTheOtherEndHangsUp) {
  auto far = std::make_unique<PtyPort>(link);
  QtSerialPort near(link, LineSettings());
  Heard heard(near);
  Send(*far, "bye");
  events.ServeUntil([&] { return !heard.text.empty(); }, kPatience_ms);
  far.reset();
  events.ServeUntil([&] { return heard.closed > 0; }, kPatience_ms);
  int events_served = 0;
  events.ServeUntil([&] { return ++events_served < 0; }, 50);
  EXPECT_LT(events_served, 50) << "the dead device must not signal for ever";
  EXPECT_EQ(heard.closed, 1);
  EXPECT_EQ(near.state(), PortState::kClosed);
  EXPECT_FALSE(Send(near, "x"));
}

TEST_F(Serial, DeliversBytesToNestedWaitAndMayBeDestroyedByHandler) {
  PtyPort far(link);
  auto near = std::make_unique<QtSerialPort>(link, LineSettings());
  std::string heard;
  bool gone = false;
  near->set_on_bytes([&](std::span<const std::uint8_t> bytes) {
    heard.append(bytes.begin(), bytes.end());
    if (heard == "a") {
      Send(far, "b");
      EXPECT_TRUE(events.ServeUntil([&] { return heard == "ab"; }, kPatience_ms));
      gone = true;
      near.reset();
    }
  });
  Send(far, "a");
  EXPECT_TRUE(events.ServeUntil([&] { return gone; }, kPatience_ms));
}

TEST_F(Serial, ReplacesOnlyLinksLeftByAKilledRun) {
  fs::create_symlink("/dev/pts/99999", link);
  {
    const PtyPort first(link);
    EXPECT_EQ(first.state(), PortState::kOpen) << first.error();
    const fs::path device = fs::read_symlink(link);
    EXPECT_THAT(PtyPort(link).error(), HasSubstr("File exists"));
    EXPECT_EQ(fs::read_symlink(link), device);
  }
  EXPECT_FALSE(fs::exists(fs::symlink_status(link)));
  for (const std::string& target : {std::string("/dev/null"), folder / "none"}) {
    fs::create_symlink(target, link);
    EXPECT_THAT(PtyPort(link).error(), HasSubstr("File exists"));
    EXPECT_TRUE(fs::remove(link));
  }
  EXPECT_THAT(PtyPort(folder / "no/line").error(), HasSubstr("No such file"));
}

TEST_F(Serial, FindsTheDeviceOfANumber) {
  QtSettings settings;
  const PtyPort far(link);
  settings.Set("Serial Ports", "Com3", link);
  EXPECT_EQ(SerialDevice(settings, 3), link);
  EXPECT_EQ(SerialDevice(settings, 1), "/dev/ttyS0");
  EXPECT_EQ(SerialDevice(settings, 8), "/dev/ttyS7");
  QtPortMaker maker(settings);
  EXPECT_EQ(maker.OpenSerial(3, LineSettings())->state(), PortState::kOpen);
  for (const int number : {0, 9, -1}) {
    const auto port = maker.OpenSerial(number, LineSettings());
    EXPECT_EQ(port->state(), PortState::kError);
    EXPECT_THAT(port->error(), HasSubstr("no serial port"));
    EXPECT_FALSE(Send(*port, "x"));
  }
  EXPECT_EQ(QtPortMaker(settings, link).OpenSerial(1, LineSettings())->state(), PortState::kOpen);
  EXPECT_THAT(QtPortMaker(settings, folder / "none").OpenSerial(1, LineSettings())->error(),
              HasSubstr("none: "));
}

class Tcp : public ::testing::Test {
 protected:
  Tcp() : listener_([this](std::unique_ptr<Port> port) { far_ = std::move(port); }) {
    EXPECT_TRUE(listener_.Listen("127.0.0.1", 0).ok());
  }

  std::unique_ptr<QtTcpPort> Connect() {
    auto near = std::make_unique<QtTcpPort>("127.0.0.1", std::to_string(listener_.port()));
    EXPECT_EQ(near->state(), PortState::kConnecting);
    EXPECT_TRUE(events_.ServeUntil([&] { return far_ && near->state() == PortState::kOpen; }, kPatience_ms));
    return near;
  }

  QtEventServer events_;
  std::unique_ptr<Port> far_;
  TcpListener listener_;
};

TEST_F(Tcp, CarriesBytesAndReportsCloseAfterTheLast) {
  auto near = Connect();
  Heard near_heard(*near), far_heard(*far_);
  EXPECT_TRUE(Send(*near, "one"));
  EXPECT_TRUE(Send(*far_, "two"));
  events_.ServeUntil([&] { return far_heard.text == "one" && near_heard.text == "two"; }, kPatience_ms);
  EXPECT_EQ(far_heard.text, "one");
  EXPECT_EQ(near_heard.text, "two");

  Send(*far_, "unread");
  Send(*near, "last words");
  near.reset();
  events_.ServeUntil([&] { return far_heard.closed > 0; }, kPatience_ms);
  EXPECT_EQ(far_heard.text, "onelast words");
  EXPECT_EQ(far_heard.closed, 1);
  EXPECT_EQ(far_->state(), PortState::kClosed);
  EXPECT_FALSE(Send(*far_, "x"));
}

TEST_F(Tcp, DeliversLargeBlockBeforeClose) {
  auto near = Connect();
  Heard far_heard(*far_);
  const std::string large(8'000'000, 'x');
  EXPECT_TRUE(Send(*near, large));
  near->Close();
  near.reset();
  events_.ServeUntil([&] { return far_heard.closed > 0; }, kPatience_ms);
  EXPECT_EQ(far_heard.text.size(), large.size());
}

TEST_F(Tcp, ReportsWhyItDoesNotConnect) {
  for (const char* port : {"", "0", "65536", "-1", "80x", "99999999999"}) {
    const QtTcpPort bad("127.0.0.1", port);
    EXPECT_EQ(bad.state(), PortState::kError) << port;
    EXPECT_THAT(bad.error(), HasSubstr("not a port number")) << port;
  }
  EXPECT_THAT(QtTcpPort("", "80").error(), HasSubstr("no host"));

  std::string free_port;
  {
    TcpListener gone([](std::unique_ptr<Port>) {});
    ASSERT_TRUE(gone.Listen("127.0.0.1", 0).ok());
    free_port = std::to_string(gone.port());
    EXPECT_FALSE(TcpListener([](std::unique_ptr<Port>) {}).Listen("127.0.0.1", gone.port()).ok());
  }
  const QtTcpPort refused("127.0.0.1", free_port);
  events_.ServeUntil([&] { return refused.state() != PortState::kConnecting; }, kPatience_ms);
  EXPECT_EQ(refused.state(), PortState::kError);
  EXPECT_THAT(refused.error(), HasSubstr("refused"));
  EXPECT_THAT(TcpListener([](std::unique_ptr<Port>) {}).Listen("nowhere", 0).message(),
              HasSubstr("not a numeric address"));
}

TEST_F(Tcp, MayBeDestroyedByItsHandler) {
  auto near = Connect();
  bool called = false;
  near->set_on_bytes([&](std::span<const std::uint8_t>) {
    called = true;
    near.reset();
  });
  Send(*far_, "x");
  EXPECT_TRUE(events_.ServeUntil([&] { return called; }, kPatience_ms));
  events_.ServeUntil([&] { return far_->state() == PortState::kClosed; }, kPatience_ms);
  EXPECT_EQ(far_->state(), PortState::kClosed);
}

}  // namespace
}  // namespace tarvok::test
