#pragma once

// Names of these floors may be used here without qualification. The folder knows no other floor.
namespace tarvok::store {}
namespace tarvok::sections {}
namespace tarvok::link {}

namespace tarvok::exchange {
using namespace store;
using namespace sections;
using namespace link;
}  // namespace tarvok::exchange
