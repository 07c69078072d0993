// SPDX-License-Identifier: MIT
// Helpers shared by the test executables: caught errors, VB dates, and scoped locales.
#pragma once

#include <VemoGridLib/VbLocale.h>
#include <VemoGridLib/VbStrings.h>
#include <VemoGridLib/VemoError.h>

#include <QByteArray>
#include <QDateTime>
#include <QMetaType>

#include <optional>
#include <vector>

Q_DECLARE_METATYPE(VemoGridLib::vb::VbLocale)
Q_DECLARE_METATYPE(VemoGridLib::vb::CompareMethod)

namespace VemoTest {

/// The VemoError that `call` throws, or nothing when it returns normally.
template <typename Call>
std::optional<VemoGridLib::VemoError> errorOf(Call&& call)
{
    try {
        call();
    } catch (const VemoGridLib::VemoError& error) {
        return error;
    }
    return std::nullopt;
}

/// The number of the VemoError that `call` throws, or 0 when it returns normally.
template <typename Call>
qint32 errorNumberOf(Call&& call)
{
    const auto error = errorOf(std::forward<Call>(call));
    return error ? error->number() : 0;
}

/// A VB date value as the runtime carries it: a plain wall-clock QDateTime in Qt::UTC.
inline QDateTime dt(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
}

/// Sets LC_ALL, LC_MESSAGES and LANG (LC_TIME unset; an empty value unsets) for one scope.
class ScopedLocale
{
public:
    explicit ScopedLocale(const QByteArray& lang)
        : ScopedLocale({}, {}, lang)
    {}
    ScopedLocale(const QByteArray& lcAll, const QByteArray& lcMessages, const QByteArray& lang)
    {
        for (const char* name : {"LC_ALL", "LC_MESSAGES", "LC_TIME", "LANG"})
            m_saved.push_back({name, qEnvironmentVariableIsSet(name), qgetenv(name)});
        for (const auto& [name, value] : {std::pair("LC_ALL", lcAll),
                                          {"LC_MESSAGES", lcMessages},
                                          {"LC_TIME", QByteArray()},
                                          {"LANG", lang}})
            set(name, value);
    }
    ~ScopedLocale()
    {
        for (const Saved& saved : m_saved)
            set(saved.name, saved.wasSet ? saved.value : QByteArray());
    }
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;

    /// Changes one variable inside the scope; it is restored with the others.
    static void set(const char* name, const QByteArray& value)
    {
        value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
    }

private:
    struct Saved
    {
        const char* name;
        bool wasSet;
        QByteArray value;
    };
    std::vector<Saved> m_saved;
};

} // namespace VemoTest
