#pragma once

#include <span>

#include "sections/field.h"
#include "sections/uses.h"

namespace tarvok::sections {

/** All tables, in the order of a project's sections. Checks and differences go through this list. The header
 * section is not in it. */
std::span<const Table* const> Tables();

}  // namespace tarvok::sections
