// SPDX-License-Identifier: MIT
// The property bag interface.
#include "common/PropertyBag.h"

namespace VemoGridLib {

// Out of line so that the vtable and type information live in the library alone.
PropertyBag::~PropertyBag() = default;

} // namespace VemoGridLib
