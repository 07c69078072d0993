// What the VemoGrid tests share: a shown grid, cell clicks, cell looks and rectangles.
#pragma once

#include "flexgrid/FlexCellStore_p.h"
#include "CellStoreAccess.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include <VemoGridLib/Twips.h>

#include <QRect>
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

/// The look of a cell as stored, read without moving the current cell (a copy: later writes
/// may move the store's looks).
inline VemoGridLib::FlexCellFormat lookOf(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    return cellsOf(*grid.hostedGrid()).format(row, col);
}

/// A cell's rectangle in the hosted viewport, its grid lines included.
inline QRect cellRect(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    using VemoGridLib::twipsToPixelsX;
    using VemoGridLib::twipsToPixelsY;
    const VemoGridLib::FlexGrid* const flex = grid.hostedGrid();
    const QWidget* const viewport = flex->viewport();
    const int left = twipsToPixelsX(flex->ColPos(col), viewport);
    const int top = twipsToPixelsY(flex->RowPos(row), viewport);
    const int right = col + 1 < flex->Cols() ? twipsToPixelsX(flex->ColPos(col + 1), viewport)
                                             : left + twipsToPixelsX(flex->ColWidth(col), viewport);
    const int bottom = row + 1 < flex->Rows()
                           ? twipsToPixelsY(flex->RowPos(row + 1), viewport)
                           : top + twipsToPixelsY(flex->RowHeight(row), viewport);
    return QRect(QPoint(left, top), QPoint(right - 1, bottom - 1));
}

} // namespace VemoTest
