// SPDX-License-Identifier: MIT
// A recorder of FlexGrid's events, shared by the FlexGrid tests.
#pragma once

#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VbKeys.h>

#include <QStringList>

namespace VemoTest {

// Records a grid's events by name in firing order; `cells` adds the current cell each cell event
// saw. Modifier keys are left out: QTest presses them around a key.
class EventLog : public QObject
{
public:
    explicit EventLog(VemoGridLib::FlexGrid& grid)
    {
        using G = VemoGridLib::FlexGrid;
        const auto cell = [this, &grid](const char* name) {
            return [this, &grid, name] {
                names << QLatin1String(name);
                cells
                    << QString("%1 %2,%3").arg(QLatin1String(name)).arg(grid.Row()).arg(grid.Col());
            };
        };
        const auto plain = [this](const char* name) {
            return [this, name] {
                names << QLatin1String(name);
            };
        };
        const auto key = [this](const char* name) {
            return [this, name](short& code) {
                using namespace VemoGridLib;
                if (code != vbKeyShift && code != vbKeyControl && code != vbKeyMenu)
                    names << QLatin1String(name);
            };
        };
        connect(&grid, &G::LeaveCell, this, cell("LeaveCell"));
        connect(&grid, &G::SelChange, this, cell("SelChange"));
        connect(&grid, &G::EnterCell, this, cell("EnterCell"));
        connect(&grid, &G::RowColChange, this, cell("RowColChange"));
        connect(&grid, &G::Scroll, this, plain("Scroll"));
        connect(&grid, &G::Click, this, plain("Click"));
        connect(&grid, &G::DblClick, this, plain("DblClick"));
        connect(&grid, &G::MouseDown, this, plain("MouseDown"));
        connect(&grid, &G::MouseUp, this, plain("MouseUp"));
        connect(&grid, &G::KeyDown, this, key("KeyDown"));
        connect(&grid, &G::KeyPress, this, plain("KeyPress"));
        connect(&grid, &G::KeyUp, this, key("KeyUp"));
    }

    /// The recorded names without Scroll.
    QStringList cellEvents() const
    {
        QStringList events = names;
        events.removeAll(QStringLiteral("Scroll"));
        return events;
    }
    int count(const QString& name) const { return int(names.count(name)); }
    void clear() { names.clear(), cells.clear(); }

    QStringList names;
    QStringList cells;
};

} // namespace VemoTest
