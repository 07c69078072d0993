// SPDX-License-Identifier: MIT
// The fixture the VemoGrid tests share: a shown grid, cell clicks, cell looks and rectangles.
#pragma once

#include "CellStoreAccess.h"
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/Twips.h>
#include <VemoGridLib/VemoGrid.h>

#include <QApplication>
#include <QRect>
#include <QStringList>
#include <QTest>

#include <memory>

namespace VemoTest {

/// The default colours of even and odd data rows and of locked or numbered columns.
inline constexpr VemoGridLib::OleColor Band1 = 0xFFFFFF, Band2 = 0xBFFFFF,
                                       ReadOnlyColour = 0xDFDFC0;

inline VemoGridLib::OleColor bandOf(const VemoGridLib::VemoGrid& grid, int row)
{
    return (row - grid.FixedRows()) % 2 == 0 ? Band1 : Band2;
}

/// Pins the application font, so that pixel checks do not depend on the machine's fonts.
inline void pinFont()
{
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
}

/// A shown 700 × 360 grid with the columns of `format`; cells are 80 × 30 pixels (1200 × 450
/// twips), so they can be clicked and sampled below the text. Null when not exposed.
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
    QCoreApplication::processEvents(); // the scroll bars settle from the event loop
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

inline QRect cellRect(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    return VemoGridLib::cellRect(*grid.hostedGrid(), row, col);
}

/// A user's click on the centre of a cell.
inline void clickCell(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    const VemoGridLib::FlexGrid* const flex = grid.hostedGrid();
    const QPoint centre((flex->ColPos(col) + flex->ColWidth(col) / 2) / 15,
                        (flex->RowPos(row) + flex->RowHeight(row) / 2) / 15);
    QTest::mouseClick(flex->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
}

/// A copy of a cell's stored look, read without moving the current cell.
inline VemoGridLib::FlexCellFormat lookOf(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    return cellsOf(*grid.hostedGrid()).format(row, col);
}

inline bool hasPicture(const VemoGridLib::VemoGrid& grid, int row, int col)
{
    return !lookOf(grid, row, col).picture.isNull();
}

} // namespace VemoTest
