// SPDX-License-Identifier: MIT
#include "common/VemoError.h"

namespace VemoGridLib {

VemoError::VemoError(qint32 number, const QString& description)
    : std::runtime_error(description.toStdString())
    , m_number(number)
    , m_description(description)
{}

VemoError VemoError::invalidProcedureCall()
{
    return VemoError(InvalidProcedureCall, QStringLiteral("Invalid procedure call or argument"));
}

VemoError VemoError::overflow()
{
    return VemoError(Overflow, QStringLiteral("Overflow"));
}

VemoError VemoError::subscriptOutOfRange()
{
    return VemoError(SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
}

VemoError VemoError::typeMismatch()
{
    return VemoError(TypeMismatch, QStringLiteral("Type mismatch"));
}

VemoError VemoError::badFileNameOrNumber()
{
    return VemoError(BadFileNameOrNumber, QStringLiteral("Bad file name or number"));
}

VemoError VemoError::deviceIoError()
{
    return VemoError(DeviceIoError, QStringLiteral("Device I/O error"));
}

VemoError VemoError::pathFileAccessError()
{
    return VemoError(PathFileAccessError, QStringLiteral("Path/File access error"));
}

} // namespace VemoGridLib
