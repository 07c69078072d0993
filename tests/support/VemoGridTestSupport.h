// SPDX-License-Identifier: MIT
// The fixture the VemoGrid tests share: a shown grid, cell clicks, cell looks and rectangles.
#pragma once

#include "flexgrid/FlexCellStore_p.h"
#include "CellStoreAccess.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include <VemoGridLib/Twips.h>

#include <QApplication>
#include <QRect>
#include <QStringList>
#include <QTest>

#include <memory>

namespace VemoTest {

/// The default colours of even and odd data rows and of locked or numbered columns.
inline constexpr VemoGridLib::OleColor Band1 = 0xFFFFFF;
inline constexpr VemoGridLib::OleColor Band2 = 0xBFFFFF;
inline constexpr VemoGridLib::OleColor ReadOnlyColour = 0xDFDFC0;

/// The band colour of data row `row` of a grid with the default colours.
inline VemoGridLib::OleColor bandOf(const VemoGridLib::VemoGrid& grid, int row)
{
    return (row - grid.FixedRows()) % 2 == 0 ? Band1 : Band2;
}

/// Pins the application font, so that pixel checks do not depend on the machine's fonts.
inline void pinFont()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

/// A shown grid of 700 × 360 pixels with the columns of `format` (e.g. "|A|B") and `dataRows`
/// data rows; every column is 1200 and every row 450 twips (80 × 30 pixels at 96 dpi), so cells
/// can be clicked and their background sampled below the text. Null when the window could not
/// be exposed.
inline std::unique_ptr<VemoGridLib::VemoGrid>
shownGrid(const QString& format = QStringLiteral("|A"), int dataRows = 1)
{
    auto grid = std::make_unique<VemoGridLib::VemoGrid>();
    grid->resize(700, 360);
    grid->setFormatString(format);
    for (int col = 0; col < grid->Cols(); ++col)
        grid->hostedGrid()->setColWidth(col, 1200);
    grid->setRowHeightMin(450);
    grid->setRows(1 + dataRows);
    grid->show();
    if (!QTest::qWaitForWindowExposed(grid.get()))
        return nullptr;
    // The scroll area shows or hides its bars from the event loop.
    QCoreApplication::processEvents();
    return grid;
}

/// The texts of column `col` in the data rows.
inline QStringList columnTexts(const VemoGridLib::VemoGrid& grid, int col)
{
    QStringList texts;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
        texts << grid.TextMatrix(row, col);
    return texts;
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

/// A user's click on the centre of a cell of the grid's hosted grid (at 96 dpi, 15 twips a
/// pixel).
inline void clickCell(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    const VemoGridLib::FlexGrid* const flex = grid.hostedGrid();
    const QPoint centre((flex->ColPos(col) + flex->ColWidth(col) / 2) / 15,
                        (flex->RowPos(row) + flex->RowHeight(row) / 2) / 15);
    QTest::mouseClick(flex->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
}

/// The look of a cell as stored, read without moving the current cell (a copy: later writes
/// may move the store's looks).
inline VemoGridLib::FlexCellFormat lookOf(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    return cellsOf(*grid.hostedGrid()).format(row, col);
}

/// Whether the cell shows a picture.
inline bool hasPicture(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    return !lookOf(grid, row, col).picture.isNull();
}

/// The viewport as drawn.
inline QImage shot(const VemoGridLib::VemoGrid& grid)
{
    return grid.hostedGrid()->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace VemoTest
