// SPDX-License-Identifier: MIT
// The system default locale, the language index of the messages, and the ANSI code page.
#pragma once

#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QByteArray>
#include <QString>

namespace VemoGridLib {

/// The Windows locale identifier of a POSIX locale name ("zh_CN.UTF-8" → 2052, "zh_TW" → 1028,
/// "zh_HK" → 3076, "en_US" → 1033, "en_GB" → 2057, ...); "C", "POSIX", empty or unknown → 1033.
VEMOGRIDLIB_EXPORT quint32 lcidFromLocaleName(const QString& localeName);

/// The system default locale identifier, from the first set of LC_ALL, LC_MESSAGES,
/// LANG; read on every call, never cached.
VEMOGRIDLIB_EXPORT quint32 systemDefaultLcid();

/// The user default locale identifier that the VB runtime's conversions follow: the first
/// set of LC_ALL, LC_TIME, LANG; kept apart from the system locale of the messages.
VEMOGRIDLIB_EXPORT quint32 userDefaultLcid();

/// The message language: 0 (Simplified Chinese) for 2052, 1 (Traditional Chinese) for 1028, 2
/// (English) for any other system locale; read on every call.
VEMOGRIDLIB_EXPORT LanguageIndex languageIndex();

/// The system ANSI code page of the texts the Excel export writes: 936 (GBK) for
/// 2052, 950 (Big5) for 1028, 1252 otherwise.
VEMOGRIDLIB_EXPORT int ansiCodePage();

/// Converts text to the system ANSI code page with iconv; a character the code page lacks
/// becomes "?".
VEMOGRIDLIB_EXPORT QByteArray toAnsiCodePage(const QString& text);
/// The same conversion for an explicit code page (936, 950 or 1252).
VEMOGRIDLIB_EXPORT QByteArray toAnsiCodePage(const QString& text, int codePage);

} // namespace VemoGridLib
