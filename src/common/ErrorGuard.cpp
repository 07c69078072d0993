// SPDX-License-Identifier: MIT
#include "common/ErrorGuard.h"

#include "common/VemoError.h"

#include <QMetaObject>
#include <QObject>

namespace VemoGridLib {

namespace {

/// "error 380: Invalid property value" for the library's errors, what() for others.
QString describe(const std::exception* error)
{
    if (const auto* vemo = dynamic_cast<const VemoError*>(error))
        return QStringLiteral("error %1: %2").arg(vemo->number()).arg(vemo->description());
    return error ? QString::fromLocal8Bit(error->what()) : QStringLiteral("unknown exception");
}

} // namespace

void warnCaughtError(const char* where, const std::exception* error)
{
    qWarning("%s: %s", where, qUtf8Printable(describe(error)));
}

void warnRefusedValue(const QObject* object, const char* property, const QString& value,
                      const std::exception* error)
{
    qWarning("%s: property %s refused the value %s (%s); it keeps its value",
             object->metaObject()->className(), property, qUtf8Printable(value),
             qUtf8Printable(describe(error)));
}

} // namespace VemoGridLib
