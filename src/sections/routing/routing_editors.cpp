// The editors of routing.

#include "sections/editors.h"

namespace tarvok {

std::span<const Editor> RoutingEditors() {
  return {};
}

}  // namespace tarvok
