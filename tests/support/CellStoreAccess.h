// SPDX-License-Identifier: MIT
// The cell store under a FlexGrid, for tests that check looks and storage directly, and the
// cells' pixel geometry.
#pragma once

#include "flexgrid/FlexGrid_p.h"

namespace VemoGridLib {

inline const FlexCellStore& cellsOf(const FlexGrid& grid)
{
    return FlexGridPrivate::get(&grid)->store;
}

/// A cell's rectangle in viewport pixels (96 dpi: 15 twips a pixel), its grid lines included.
inline QRect cellRect(const FlexGrid& grid, int row, int col)
{
    return QRect(grid.ColPos(col) / 15, grid.RowPos(row) / 15, grid.ColWidth(col) / 15,
                 grid.RowHeight(row) / 15);
}

} // namespace VemoGridLib
