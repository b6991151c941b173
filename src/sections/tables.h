#pragma once

#include <span>

#include "sections/field.h"
#include "sections/uses.h"

namespace tarvok::sections {

/** Every statement of rows and fields, in the order of a project's sections: the one list that check and
 * difference walk. The header section is not among them. */
std::span<const Table* const> Tables();

}  // namespace tarvok::sections
