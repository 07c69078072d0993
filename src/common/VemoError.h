// SPDX-License-Identifier: MIT
// The error raised to the host: an automation error number with a plain English description.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

#include <stdexcept>

namespace VemoGridLib {

/// Thrown by an API call that fails, carrying VB's `Err.Number` and `Err.Description`
/// (a number and a text). Never thrown through Qt's event loop.
class VEMOGRIDLIB_EXPORT VemoError : public std::runtime_error
{
public:
    /// The automation object-error base 0x80040000 as VB's signed `Err.Number`.
    static constexpr qint32 ObjectErrorBase = qint32(0x80040000u);

    /// VB run-time error numbers the library raises.
    enum RuntimeError : qint32 {
        InvalidProcedureCall = 5,
        Overflow = 6,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        BadFileNameOrNumber = 52,
        FileNotFound = 53,
        BadFileMode = 54,
        DeviceIoError = 57,
        PathFileAccessError = 75,
        InvalidKey = 35603,
    };

    VemoError(qint32 number, const QString& description);

    /// The error number, e.g. -2147221504 or 13.
    qint32 number() const noexcept { return m_number; }
    /// The description, e.g. "Can't set decimal lenght to this column".
    QString description() const { return m_description; }

    /// VB run-time error 5, "Invalid procedure call or argument".
    static VemoError invalidProcedureCall();
    /// VB run-time error 6, "Overflow".
    static VemoError overflow();
    /// VB run-time error 9, "Subscript out of range".
    static VemoError subscriptOutOfRange();
    /// VB run-time error 13, "Type mismatch".
    static VemoError typeMismatch();
    /// VB run-time error 52, "Bad file name or number": a write to a file that is not open.
    static VemoError badFileNameOrNumber();
    /// VB run-time error 57, "Device I/O error": the write itself failed.
    static VemoError deviceIoError();
    /// VB run-time error 75, "Path/File access error": the file cannot be opened.
    static VemoError pathFileAccessError();

private:
    qint32 m_number;
    QString m_description;
};

} // namespace VemoGridLib
