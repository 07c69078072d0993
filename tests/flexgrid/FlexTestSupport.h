// SPDX-License-Identifier: MIT
// The shown grid, pinned font and cell geometry shared by the FlexGrid tests.
#pragma once

#include "FlexEventLog.h"
#include "VemoTestSupport.h"
#include <VemoGridLib/FlexGrid.h>

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include <functional>
#include <memory>

using GridCall = std::function<void(VemoGridLib::FlexGrid&)>;
Q_DECLARE_METATYPE(GridCall)

namespace VemoTest {

using VemoGridLib::FlexGrid;

constexpr int TwipsPerPixel = 15;
constexpr int RowTwips = 300;  // 20 px
constexpr int ColTwips = 1200; // 80 px
/// A shown grid's viewport: the fixed row and 9 data rows, the fixed column and 4 data columns.
constexpr QSize Viewport(400, 200);
constexpr int VisibleRows = 9;
constexpr int VisibleCols = 4;

/// Pins the font (unsmoothed, so that text ink is exactly the text colour) and checks the 96 dpi
/// that the tests' twips-to-pixel arithmetic assumes.
inline bool pinFontAndDpi()
{
    QFont font(QStringLiteral("DejaVu Sans"), 9);
    font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
    return QGuiApplication::primaryScreen()->logicalDotsPerInch() == 96;
}

/// Row, Col, RowSel and ColSel.
inline QList<int> cursorOf(const FlexGrid& grid)
{
    return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()};
}

inline void select(FlexGrid& grid, int row, int col, int rowSel, int colSel)
{
    grid.setRow(row);
    grid.setCol(col);
    grid.setRowSel(rowSel);
    grid.setColSel(colSel);
}

inline QPixmap solid(const QColor& color, int size = 8)
{
    QPixmap pixmap(size, size);
    pixmap.fill(color);
    return pixmap;
}

/// Runs steps separated by blanks: `Name=value` sets the property Name (0x… is hexadecimal),
/// `sel=r,c,rs,cs` selects, and `AddItem(text[,index])`, `RemoveItem(i)`, `RowPosition(from,to)`,
/// `ColPosition(from,to)`, `Sort(setting)`, `scroll(request)`, `TextMatrix(r,c,text)`,
/// `RowHeight(r,twips)`, `ColWidth(c,twips)`, `ColAlignment(c,a)`, `MergeRow(r,0|1)`,
/// `MergeCol(c,0|1)`, `CellBackColor(c)`, `CellForeColor(c)` and `Clear()` call those members.
inline void run(FlexGrid& grid, const QString& script)
{
    for (const QString& step : script.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype eq = step.indexOf(u'=');
        const QString name = eq > 0 ? step.left(eq) : step.section(u'(', 0, 0);
        const QStringList a =
            (eq > 0 ? step.mid(eq + 1) : step.section(u'(', 1).chopped(1)).split(u',');
        const auto n = [&a](int i) {
            return a.at(i).toInt(nullptr, 0);
        };
        if (name == u"sel")
            select(grid, n(0), n(1), n(2), n(3));
        else if (eq > 0 && grid.metaObject()->indexOfProperty(qPrintable(name)) >= 0)
            grid.setProperty(qPrintable(name), a.at(0).startsWith(u"0x")
                                                   ? QVariant(a.at(0).toUInt(nullptr, 0))
                                                   : QVariant(a.at(0)));
        else if (name == u"AddItem" && a.size() == 2)
            grid.AddItem(a.at(0), n(1));
        else if (name == u"AddItem")
            grid.AddItem(a.at(0));
        else if (name == u"RemoveItem")
            grid.RemoveItem(n(0));
        else if (name == u"RowPosition")
            grid.setRowPosition(n(0), n(1));
        else if (name == u"ColPosition")
            grid.setColPosition(n(0), n(1));
        else if (name == u"Sort")
            grid.setSort(n(0));
        else if (name == u"scroll")
            grid.scrollVertically(n(0));
        else if (name == u"TextMatrix")
            grid.setTextMatrix(n(0), n(1), a.at(2));
        else if (name == u"RowHeight")
            grid.setRowHeight(n(0), n(1));
        else if (name == u"ColAlignment")
            grid.setColAlignment(n(0), n(1));
        else if (name == u"ColWidth")
            grid.setColWidth(n(0), n(1));
        else if (name == u"MergeRow")
            grid.setMergeRow(n(0), n(1));
        else if (name == u"MergeCol")
            grid.setMergeCol(n(0), n(1));
        else if (name == u"CellBackColor")
            grid.setCellBackColor(a.at(0).toUInt(nullptr, 0));
        else if (name == u"CellFontSize")
            grid.setCellFontSize(n(0));
        else if (name == u"CellFontWidth")
            grid.setCellFontWidth(n(0));
        else if (name == u"CellFontUnderline")
            grid.setCellFontUnderline(n(0));
        else if (name == u"CellTextStyle")
            grid.setCellTextStyle(n(0));
        else if (name == u"CellForeColor")
            grid.setCellForeColor(a.at(0).toUInt(nullptr, 0));
        else if (name == u"Clear")
            grid.Clear();
        else
            qFatal("unknown step %s", qPrintable(step));
    }
}

/// Rows × cols of 20 × 80 px cells, each reading "r,c" when `texts` is set.
inline void fill(FlexGrid& grid, int rows, int cols, bool texts = false)
{
    grid.setRows(rows);
    grid.setCols(cols);
    grid.setColWidth(-1, ColTwips);
    for (int r = 0; r < rows; ++r) {
        grid.setRowHeight(r, RowTwips);
        for (int c = 0; texts && c < cols; ++c)
            grid.setTextMatrix(r, c, QStringLiteral("%1,%2").arg(r).arg(c));
    }
}

/// Resizes the grid so that its viewport, with the scroll bars it shows now, measures `size`.
inline bool setViewport(FlexGrid& grid, QSize size)
{
    // The scroll area shows or hides its bars from the event loop.
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        if (grid.viewport()->size() == size)
            return true;
        grid.resize(grid.size() + size - grid.viewport()->size());
    }
    return false;
}

/// A window holding a grid and a line edit that can take the keyboard focus from it.
struct Scene
{
    QWidget window;
    FlexGrid* grid = new FlexGrid(&window);
    QLineEdit* other = new QLineEdit(&window);
};

/// A shown grid filled as by fill(), its viewport exactly Viewport; null if it failed to show.
inline std::unique_ptr<Scene> showGrid(int rows, int cols, bool texts = false)
{
    auto scene = std::make_unique<Scene>();
    scene->window.resize(700, 500);
    scene->other->setGeometry(0, 460, 100, 20);
    fill(*scene->grid, rows, cols, texts);
    scene->grid->resize(Viewport);
    scene->window.show();
    if (!QTest::qWaitForWindowExposed(&scene->window) || !setViewport(*scene->grid, Viewport))
        return nullptr;
    return scene;
}

/// A cell's rectangle in viewport pixels, its grid lines included, from the twips geometry.
inline QRect cellRect(const FlexGrid& grid, int row, int col)
{
    return QRect(grid.ColPos(col) / TwipsPerPixel, grid.RowPos(row) / TwipsPerPixel,
                 grid.ColWidth(col) / TwipsPerPixel, grid.RowHeight(row) / TwipsPerPixel);
}

} // namespace VemoTest
