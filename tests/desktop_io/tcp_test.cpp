#include <gmock/gmock.h>

#include "desktop/io/qt_tcp_port.h"
#include "desktop/io/tcp_listener.h"
#include "tests/desktop_io/io_bench.h"

namespace tarvok::test {
namespace {

using ::testing::HasSubstr;

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

TEST_F(Tcp, CarriesBytesAndTellsTheEndBehindTheLast) {
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

TEST_F(Tcp, LosesNothingOfALargeBlockAtClose) {
  auto near = Connect();
  Heard far_heard(*far_);
  const std::string large(8'000'000, 'x');
  EXPECT_TRUE(Send(*near, large));
  near->Close();
  near.reset();
  events_.ServeUntil([&] { return far_heard.closed > 0; }, kPatience_ms);
  EXPECT_EQ(far_heard.text.size(), large.size());
}

TEST_F(Tcp, SaysWhyItDoesNotConnect) {
  for (const char* port : {"", "0", "65536", "-1", "80x", "99999999999"}) {
    const QtTcpPort bad("127.0.0.1", port);
    EXPECT_EQ(bad.state(), PortState::kError) << port;
    EXPECT_THAT(bad.error(), HasSubstr("no port number")) << port;
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
              HasSubstr("no address"));
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
