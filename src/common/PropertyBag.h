// SPDX-License-Identifier: MIT
// The container's property bag: where a form's saved control settings live.
#pragma once

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>
#include <QVariant>

namespace VemoGridLib {

/// Where a control's design-time settings are saved and restored from. A control
/// reads each property with its read default and writes each with its write default; the bag
/// decides what "not stored" means. `MemoryPropertyBag` is the library's implementation.
class VEMOGRIDLIB_EXPORT PropertyBag
{
public:
    virtual ~PropertyBag();

    /// The value stored under `name`, or `defaultValue` when nothing is stored under it.
    virtual QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const = 0;
    /// Stores `value` under `name`; a value equal to `defaultValue` is not stored (and removes
    /// what was stored before under that name).
    virtual void WriteProperty(const QString& name, const QVariant& value,
                               const QVariant& defaultValue) = 0;

protected:
    PropertyBag() = default;
    PropertyBag(const PropertyBag&) = default;
    PropertyBag& operator=(const PropertyBag&) = default;
};

/// One setting of a control's `ReadProperties`: the value stored under `name` (or
/// `defaultValue`) is handed to `apply`. A failure — a value of the wrong kind, a setter's
/// refusal — is reported under `where` and skips this setting alone.
template <typename Apply>
void readSetting(const PropertyBag& bag, const char* where, const char* name,
                 const QVariant& defaultValue, Apply&& apply)
{
    catchingErrors(where,
                   [&] { apply(bag.ReadProperty(QString::fromLatin1(name), defaultValue)); });
}

/// One setting of a control's `WriteProperties`; a failure skips this setting alone.
VEMOGRIDLIB_EXPORT void writeSetting(PropertyBag& bag, const char* where, const char* name,
                                     const QVariant& value, const QVariant& defaultValue);

/// The whole number a saved setting holds (a Boolean as 1 or 0); VemoError 13 for anything else.
VEMOGRIDLIB_EXPORT qlonglong savedNumber(const QVariant& value);

} // namespace VemoGridLib
