#pragma once

// The floors whose names can be used here unqualified. Other floors must not be used.
namespace tarvok::store {}
namespace tarvok::sections {}

namespace tarvok::project {
using namespace store;
using namespace sections;
}  // namespace tarvok::project
