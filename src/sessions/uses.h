#pragma once

// The floors whose names may be used here without saying where they come from. No other floor is known here.
namespace tarvok::store {}
namespace tarvok::sections {}
namespace tarvok::link {}

namespace tarvok::sessions {
using namespace store;
using namespace sections;
using namespace link;
}  // namespace tarvok::sessions
