#pragma once

// The floors whose names may be used here without saying where they come from. No other floor is known here.
namespace tarvok::store {}
namespace tarvok::editing {}
namespace tarvok::sections {}
namespace tarvok::project {}

namespace tarvok::editors {
using namespace store;
using namespace editing;
using namespace sections;
using namespace project;
}  // namespace tarvok::editors
