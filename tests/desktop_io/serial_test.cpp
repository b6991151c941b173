#include <fcntl.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "desktop/io/pty_port.h"
#include "desktop/io/qt_port_maker.h"
#include "desktop/io/qt_serial_port.h"
#include "desktop/io/qt_settings.h"
#include "tests/desktop_io/io_bench.h"

namespace tarvok::test {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

TEST(Serial, CarriesEveryByteBothWays) {
  QtEventServer events;
  const TempFolder folder;
  PtyPort far(folder / "line");
  ASSERT_EQ(far.state(), PortState::kOpen) << far.error();
  QtSerialPort near(folder / "line", *ParseLineSettings("9600,n,8,1"));
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

TEST(Serial, GivesTheNextProgramACleanLine) {
  QtEventServer events;
  const TempFolder folder;
  PtyPort far(folder / "line");
  Heard far_heard(far);
  int released = 0;
  far.set_on_released([&] { ++released; });
  for (int round = 1; round <= 3; ++round) {
    QtSerialPort near(folder / "line", LineSettings());
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

TEST(Serial, ClosesItselfOnceWhenTheOtherEndHangsUp) {
  QtEventServer events;
  const TempFolder folder;
  auto far = std::make_unique<PtyPort>(folder / "line");
  QtSerialPort near(folder / "line", LineSettings());
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

TEST(Serial, GivesBytesToANestedWaitAndSurvivesItsOwnHandler) {
  QtEventServer events;
  const TempFolder folder;
  PtyPort far(folder / "line");
  auto near = std::make_unique<QtSerialPort>(folder / "line", LineSettings());
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

TEST(Serial, ReplacesOnlyLinksToTerminals) {
  const TempFolder folder;
  const std::string link = folder / "line";
  fs::create_symlink("/dev/pts/99999", link);
  {
    const PtyPort first(link);
    EXPECT_EQ(first.state(), PortState::kOpen) << first.error();
    EXPECT_TRUE(fs::exists(link));
    const PtyPort second(link);
    EXPECT_EQ(second.state(), PortState::kOpen);
  }
  EXPECT_FALSE(fs::exists(fs::symlink_status(link)));
  fs::create_symlink("/dev/null", link);
  EXPECT_THAT(PtyPort(link).error(), HasSubstr("File exists"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_THAT(PtyPort(folder / "no/line").error(), HasSubstr("No such file"));
}

TEST(PortMaker, FindsTheDeviceBehindAnIndex) {
  const TempFolder folder;
  QtSettings settings;
  const PtyPort far(folder / "line");
  settings.Set("Serial Ports", "Com3", folder / "line");
  EXPECT_EQ(SerialDevice(settings, 3), folder / "line");
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
  EXPECT_EQ(QtPortMaker(settings, folder / "line").OpenSerial(1, LineSettings())->state(), PortState::kOpen);
  EXPECT_THAT(QtPortMaker(settings, folder / "none").OpenSerial(1, LineSettings())->error(),
              HasSubstr("none: "));
}

}  // namespace
}  // namespace tarvok::test
