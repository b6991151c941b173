#pragma once

// What tries the floors out may use all their names without saying where they come from.
namespace tarvok::store {}
namespace tarvok::platform {}
namespace tarvok::link {}
namespace tarvok::sections {}
namespace tarvok::sessions {}
namespace tarvok::exchange {}
namespace tarvok::project {}
namespace tarvok::frame {}
namespace tarvok::editing {}
namespace tarvok::editors {}
namespace tarvok::io {}
namespace tarvok::desktop {}

namespace tarvok::test {
using namespace store;
using namespace platform;
using namespace link;
using namespace sections;
using namespace sessions;
using namespace exchange;
using namespace project;
using namespace frame;
using namespace editing;
using namespace editors;
using namespace io;
using namespace desktop;
}  // namespace tarvok::test

namespace tarvok::fuzz {
using namespace test;
}  // namespace tarvok::fuzz

namespace tarvok::bench {
using namespace test;
}  // namespace tarvok::bench
