#pragma once

// Names of these floors may be used here without qualification. The folder knows no other floor.
namespace tarvok::store {}
namespace tarvok::link {}

namespace tarvok::io {
using namespace store;
using namespace link;
}  // namespace tarvok::io
