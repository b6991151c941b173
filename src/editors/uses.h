#pragma once

// The floors whose names can be used here unqualified. Other floors must not be used.
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
