#pragma once

// The floors whose names can be used here unqualified. Other floors must not be used.
namespace tarvok::store {}
namespace tarvok::sections {}
namespace tarvok::project {}

namespace tarvok::frame {
using namespace store;
using namespace sections;
using namespace project;
}  // namespace tarvok::frame
