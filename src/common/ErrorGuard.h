// SPDX-License-Identifier: MIT
// Keeps the library's errors on this side of Qt: event handlers, slots, signal relays and
// property writes made through the meta-object system report a failure instead of throwing.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QDebug>
#include <QString>

#include <exception>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace VemoGridLib {

/// Reports with qWarning an error caught where nothing may throw; `where` names the handler.
/// `error` is null for an exception that is no std::exception.
VEMOGRIDLIB_EXPORT void warnCaughtError(const char* where, const std::exception* error);

/// Reports with qWarning a value that `object`'s `property` refused; `value` is its text.
VEMOGRIDLIB_EXPORT void warnRefusedValue(const QObject* object, const char* property,
                                         const QString& value, const std::exception* error);

/// Runs `step` where nothing may throw (an event handler, a slot, a signal relay): an error is
/// reported with qWarning and goes no further. True when `step` ran through.
template <typename Step>
bool catchingErrors(const char* where, Step&& step) noexcept
{
    try {
        step();
        return true;
    } catch (const std::exception& error) {
        warnCaughtError(where, &error);
    } catch (...) {
        warnCaughtError(where, nullptr);
    }
    return false;
}

/// A property written through the meta-object system (QObject::setProperty, Qt Designer, any
/// container): `set` is the throwing setter; a refused value leaves the old one in place (the
/// setters check before they change anything) and is reported, naming property and value.
template <typename Object, typename Value, typename Set>
void writeProperty(const Object* object, const char* property, const Value& value,
                   Set&& set) noexcept
{
    try {
        set();
    } catch (const std::exception& error) {
        QString text;
        QDebug(&text).nospace() << value;
        warnRefusedValue(object, property, text, &error);
    } catch (...) {
        warnRefusedValue(object, property, QString(), nullptr);
    }
}

} // namespace VemoGridLib

/// Declares `guardedSet<Name>`, the non-throwing writer a `Q_PROPERTY(Type Name ... WRITE
/// guardedSet<Name>)` hands to moc; direct C++ calls use the throwing `set<Name>`.
#define VEMO_GUARDED_WRITE(Type, Name)                                                             \
    void guardedSet##Name(Type value) noexcept                                                     \
    {                                                                                              \
        VemoGridLib::writeProperty(this, #Name, value, [&] { set##Name(value); });                 \
    }
