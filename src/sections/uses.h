#pragma once

// The namespaces of lower layers whose names are used here unqualified. This layer uses no others.
namespace tarvok::store {}

namespace tarvok::sections {
using namespace store;
}  // namespace tarvok::sections
