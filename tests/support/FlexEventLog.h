// A recorder of FlexGrid's cell, selection and scroll events, shared by the FlexGrid tests.
#pragma once

#include <VemoGridLib/FlexGrid.h>

#include <QStringList>

#include <vector>

namespace VemoTest {

// Records the cell, selection and scroll events of a grid in the order they fire.
class EventLog
{
public:
    explicit EventLog(VemoGridLib::FlexGrid& grid)
    {
        const auto record = [this](const char* name) {
            return [this, name] {
                names << QLatin1String(name);
            };
        };
        m_connections = {
            QObject::connect(&grid, &VemoGridLib::FlexGrid::LeaveCell, record("LeaveCell")),
            QObject::connect(&grid, &VemoGridLib::FlexGrid::SelChange, record("SelChange")),
            QObject::connect(&grid, &VemoGridLib::FlexGrid::EnterCell, record("EnterCell")),
            QObject::connect(&grid, &VemoGridLib::FlexGrid::RowColChange, record("RowColChange")),
            QObject::connect(&grid, &VemoGridLib::FlexGrid::Scroll, record("Scroll")),
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

    QStringList names;

private:
    std::vector<QMetaObject::Connection> m_connections;
};

} // namespace VemoTest
