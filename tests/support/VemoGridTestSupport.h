// What the VemoGrid tests share: a shown grid, cell clicks, and cell looks.
#pragma once

#include "grid/FlexCellStore.h"
#include "grid/FlexGrid.h"
#include "grid/VemoGrid.h"

#include <QTest>

#include <memory>

namespace VemoTest {

/// Twips per pixel of the offscreen platform's 96 dpi.
inline constexpr int TwipsPerPixel = 15;

/// Pixels of `twips` at 96 dpi.
inline int px(int twips)
{
    return twips / TwipsPerPixel;
}

/// A grid shown on screen (700 × 360 pixels), so that cells can be clicked; null when the
/// window could not be exposed.
inline std::unique_ptr<VemoGridLib::VemoGrid> shownGrid()
{
    auto grid = std::make_unique<VemoGridLib::VemoGrid>();
    grid->resize(700, 360);
    grid->show();
    return QTest::qWaitForWindowExposed(grid.get()) ? std::move(grid) : nullptr;
}

/// A user's click on the centre of a cell of the grid's hosted grid.
inline void clickCell(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    const VemoGridLib::FlexGrid* const flex = grid.hostedGrid();
    const QPoint centre(px(flex->ColPos(col) + flex->ColWidth(col) / 2),
                        px(flex->RowPos(row) + flex->RowHeight(row) / 2));
    QTest::mouseClick(flex->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
}

/// The look of a cell as stored, read without moving the current cell.
inline const VemoGridLib::FlexCellFormat& lookOf(const VemoGridLib::VemoGrid& grid, int row,
                                                 int col)
{
    return grid.hostedGrid()->cells().format(row, col);
}

} // namespace VemoTest
