// SPDX-License-Identifier: MIT
// A recorder of FlexGrid's events, shared by the FlexGrid tests.
#pragma once

#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VbKeys.h>

#include <QStringList>

#include <vector>

namespace VemoTest {

// Records a grid's events by name in the order they fire; `cells` adds the current cell and
// selection corner each cell event saw. Key events of modifier keys are left out: QTest presses
// and releases them around a key, as a keyboard does.
class EventLog
{
public:
    explicit EventLog(VemoGridLib::FlexGrid& grid)
    {
        using G = VemoGridLib::FlexGrid;
        const auto cell = [this, &grid](const char* name) {
            return [this, &grid, name] {
                names << QLatin1String(name);
                cells << QStringLiteral("%1 %2,%3 sel %4,%5")
                             .arg(QLatin1String(name))
                             .arg(grid.Row())
                             .arg(grid.Col())
                             .arg(grid.RowSel())
                             .arg(grid.ColSel());
            };
        };
        const auto plain = [this](const char* name) {
            return [this, name] {
                names << QLatin1String(name);
            };
        };
        const auto key = [this](const char* name) {
            return [this, name](short& code, short&) {
                if (code != VemoGridLib::vbKeyShift && code != VemoGridLib::vbKeyControl &&
                    code != VemoGridLib::vbKeyMenu)
                    names << QLatin1String(name);
            };
        };
        const auto mouse = [this](const char* name) {
            return [this, name](short, short, float, float) {
                names << QLatin1String(name);
            };
        };
        m_connections = {
            QObject::connect(&grid, &G::LeaveCell, cell("LeaveCell")),
            QObject::connect(&grid, &G::SelChange, cell("SelChange")),
            QObject::connect(&grid, &G::EnterCell, cell("EnterCell")),
            QObject::connect(&grid, &G::RowColChange, cell("RowColChange")),
            QObject::connect(&grid, &G::Scroll, plain("Scroll")),
            QObject::connect(&grid, &G::Click, plain("Click")),
            QObject::connect(&grid, &G::DblClick, plain("DblClick")),
            QObject::connect(&grid, &G::MouseDown, mouse("MouseDown")),
            QObject::connect(&grid, &G::MouseUp, mouse("MouseUp")),
            QObject::connect(&grid, &G::KeyDown, key("KeyDown")),
            QObject::connect(&grid, &G::KeyPress, [this](short&) { names << "KeyPress"; }),
            QObject::connect(&grid, &G::KeyUp, key("KeyUp")),
        };
    }
    ~EventLog()
    {
        for (const QMetaObject::Connection& connection : m_connections)
            QObject::disconnect(connection);
    }
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    /// The recorded names without Scroll.
    QStringList cellEvents() const
    {
        QStringList events = names;
        events.removeAll(QStringLiteral("Scroll"));
        return events;
    }
    int count(const QString& name) const { return int(names.count(name)); }
    void clear()
    {
        names.clear();
        cells.clear();
    }

    QStringList names;
    QStringList cells;

private:
    std::vector<QMetaObject::Connection> m_connections;
};

} // namespace VemoTest
