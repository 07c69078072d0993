// SPDX-License-Identifier: MIT
// The cell store under a FlexGrid, for tests that check looks and storage directly.
#pragma once

#include "flexgrid/FlexGrid_p.h"

namespace VemoGridLib {

inline const FlexCellStore& cellsOf(const FlexGrid& grid)
{
    return FlexGridPrivate::get(&grid)->store;
}

} // namespace VemoGridLib
