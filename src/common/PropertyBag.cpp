// SPDX-License-Identifier: MIT
// The property bag interface.
#include "common/PropertyBag.h"

#include "common/VemoError.h"

namespace VemoGridLib {

// Out of line so that the vtable and type information live in the library alone.
PropertyBag::~PropertyBag() = default;

void writeSetting(PropertyBag& bag, const char* where, const char* name, const QVariant& value,
                  const QVariant& defaultValue)
{
    catchingErrors(where,
                   [&] { bag.WriteProperty(QString::fromLatin1(name), value, defaultValue); });
}

qlonglong savedNumber(const QVariant& value)
{
    bool ok = false;
    const qlonglong number = value.toLongLong(&ok);
    if (!ok)
        throw VemoError::typeMismatch();
    return number;
}

} // namespace VemoGridLib
