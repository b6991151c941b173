#pragma once

// The programs put the parts together and may use the names of every floor.
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
namespace tarvok::programs {}

namespace tarvok::programs {
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
}  // namespace tarvok::programs

namespace tarvok::ctl {
using namespace programs;
}  // namespace tarvok::ctl
