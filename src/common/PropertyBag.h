// SPDX-License-Identifier: MIT
// The container's property bag: where a form's saved control settings live.
#pragma once

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

} // namespace VemoGridLib
