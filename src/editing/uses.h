#pragma once

// The floors whose names can be used here unqualified. Other floors must not be used.
namespace tarvok::store {}

namespace tarvok::editing {
using namespace store;
}  // namespace tarvok::editing
