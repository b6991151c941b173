#pragma once

// The floors whose names may be used here unqualified; desktop knows no others.
namespace tarvok::store {}
namespace tarvok::link {}
namespace tarvok::io {}
namespace tarvok::sections {}
namespace tarvok::sessions {}
namespace tarvok::project {}
namespace tarvok::frame {}
namespace tarvok::editing {}
namespace tarvok::editors {}

namespace tarvok::desktop {
using namespace store;
using namespace link;
using namespace io;
using namespace sections;
using namespace sessions;
using namespace project;
using namespace frame;
using namespace editing;
using namespace editors;
}  // namespace tarvok::desktop
