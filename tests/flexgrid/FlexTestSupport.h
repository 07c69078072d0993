// SPDX-License-Identifier: MIT
// The shown grid, pinned font, cell geometry, step runner and event log of the FlexGrid tests.
#pragma once

#include "CellStoreAccess.h"
#include "VemoTestSupport.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VbKeys.h>

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>

using GridCall = std::function<void(VemoGridLib::FlexGrid&)>;
Q_DECLARE_METATYPE(GridCall)

namespace VemoTest {

using VemoGridLib::FlexGrid;

constexpr int RowTwips = 300;  // 20 px
constexpr int ColTwips = 1200; // 80 px
/// A shown grid's viewport: the fixed row and 9 data rows, the fixed column and 4 data columns.
constexpr QSize Viewport(400, 200);
constexpr int VisibleRows = 9;

/// Pins an unsmoothed font (text ink is exactly the text colour) and checks the assumed 96 dpi.
inline bool pinFontAndDpi()
{
    QFont font(QStringLiteral("DejaVu Sans"), 9);
    font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
    return QGuiApplication::primaryScreen()->logicalDotsPerInch() == 96;
}

// Records a grid's events by name in firing order, and in `cells` with the current cell each saw.
// Modifier keys are left out: QTest presses them around a key.
class EventLog : public QObject
{
public:
    explicit EventLog(FlexGrid& grid)
        : m_grid(grid)
    {
        using G = FlexGrid;
        const auto on = [this](const char* name) {
            return [this, name] {
                record(name);
            };
        };
        const auto key = [this](const char* name) {
            return [this, name](short& code) {
                using namespace VemoGridLib;
                if (code != vbKeyShift && code != vbKeyControl && code != vbKeyMenu)
                    record(name);
            };
        };
        connect(&grid, &G::LeaveCell, this, on("LeaveCell"));
        connect(&grid, &G::SelChange, this, on("SelChange"));
        connect(&grid, &G::EnterCell, this, on("EnterCell"));
        connect(&grid, &G::RowColChange, this, on("RowColChange"));
        connect(&grid, &G::Scroll, this, on("Scroll"));
        connect(&grid, &G::Click, this, on("Click"));
        connect(&grid, &G::DblClick, this, on("DblClick"));
        connect(&grid, &G::MouseDown, this, on("MouseDown"));
        connect(&grid, &G::MouseUp, this, on("MouseUp"));
        connect(&grid, &G::KeyDown, this, key("KeyDown"));
        connect(&grid, &G::KeyPress, this, on("KeyPress"));
        connect(&grid, &G::KeyUp, this, key("KeyUp"));
    }
    void record(const char* name)
    {
        names << QLatin1String(name);
        cells << QString("%1 %2,%3").arg(QLatin1String(name)).arg(m_grid.Row()).arg(m_grid.Col());
    }
    void clear() { names.clear(), cells.clear(); }

    QStringList names;
    QStringList cells;

private:
    FlexGrid& m_grid;
};

/// Row, Col, RowSel and ColSel.
inline QList<int> cursorOf(const FlexGrid& grid)
{
    return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()};
}

inline QPixmap solid(const QColor& color, int size = 8)
{
    QPixmap pixmap(size, size);
    pixmap.fill(color);
    return pixmap;
}

/// A member taking numbers, called with the numbers of a step.
template <typename... A>
std::function<void(FlexGrid&, const QList<int>&)> member(void (FlexGrid::*f)(A...))
{
    return [f](FlexGrid& g, const QList<int>& n) {
        [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            (g.*f)(A(n.value(I))...);
        }
        (std::index_sequence_for<A...>());
    };
}

/// Runs steps separated by blanks: `Name=value` sets the property Name (0x… is hexadecimal),
/// `sel=r,c,rs,cs` selects, and `Member(args)` calls AddItem, TextMatrix or a member below.
inline void run(FlexGrid& grid, const QString& script)
{
    using G = FlexGrid;
    static const QHash<QString, std::function<void(G&, const QList<int>&)>> members = {
        {"RemoveItem", member(&G::RemoveItem)},
        {"scroll", member(&G::scrollVertically)},
        {"RowPosition", member(&G::setRowPosition)},
        {"RowHeight", member(&G::setRowHeight)},
        {"ColWidth", member(&G::setColWidth)},
        {"ColAlignment", member(&G::setColAlignment)},
        {"MergeRow", member(&G::setMergeRow)},
        {"MergeCol", member(&G::setMergeCol)},
        {"CellBackColor", member(&G::setCellBackColor)},
        {"CellForeColor", member(&G::setCellForeColor)},
        {"CellFontSize", member(&G::setCellFontSize)},
        {"CellFontWidth", member(&G::setCellFontWidth)},
        {"CellFontUnderline", member(&G::setCellFontUnderline)},
        {"CellTextStyle", member(&G::setCellTextStyle)},
        {"Sort", member(&G::setSort)},
        {"Clear", member(&G::Clear)}};
    for (const QString& step : script.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype eq = step.indexOf(u'=');
        const QString name = eq > 0 ? step.left(eq) : step.section(u'(', 0, 0);
        const QStringList a =
            (eq > 0 ? step.mid(eq + 1) : step.section(u'(', 1).chopped(1)).split(u',');
        QList<int> n;
        for (const QString& arg : a)
            n << arg.toInt(nullptr, 0);
        if (name == u"sel")
            grid.setRow(n[0]), grid.setCol(n[1]), grid.setRowSel(n[2]), grid.setColSel(n[3]);
        else if (name == u"AddItem")
            a.size() == 2 ? grid.AddItem(a[0], n[1]) : grid.AddItem(a[0]);
        else if (name == u"TextMatrix")
            grid.setTextMatrix(n[0], n[1], a[2]);
        else if (members.contains(name))
            members[name](grid, n);
        else if (eq > 0 && grid.metaObject()->indexOfProperty(qPrintable(name)) >= 0)
            grid.setProperty(qPrintable(name), a[0].startsWith(u"0x")
                                                   ? QVariant(a[0].toUInt(nullptr, 0))
                                                   : QVariant(a[0]));
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

/// Resizes the grid so that its viewport measures `size`, its scroll bars settled.
inline bool setViewport(FlexGrid& grid, QSize size)
{
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

} // namespace VemoTest
