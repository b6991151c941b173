#pragma once

// Names of these floors may be used here without qualification. The folder knows no other floor.
namespace tarvok::store {}

namespace tarvok::link {
using namespace store;
}  // namespace tarvok::link
