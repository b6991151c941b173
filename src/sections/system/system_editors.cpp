// The editors of system.

#include "sections/editors.h"

namespace tarvok {

std::span<const Editor> SystemEditors() {
  return {};
}

}  // namespace tarvok
