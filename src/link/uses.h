#pragma once

// The floors whose names may be used here without saying where they come from. No other floor is known here.
namespace tarvok::store {}

namespace tarvok::link {
using namespace store;
}  // namespace tarvok::link
