// SPDX-License-Identifier: MIT
// VB runtime subset: the Format function with number, date and text formats.
#pragma once

#include <VemoGridLib/VbLocale.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QDateTime>
#include <QString>

namespace VemoGridLib::vb {

/// `Format(number, fmt)`: with an empty format (or "General Number") the general form (CStr);
/// a number format ("0", "#", ",", ".", "%", "E+", up to four ';' sections, literals, quotes and
/// backslashes) rounds half away from zero on the 15-digit decimal form; named formats
/// ("Standard", "Fixed", "Percent", "Scientific", "Currency", "True/False", "Yes/No", "On/Off");
/// a date format takes the number as a day serial.
VEMOGRIDLIB_EXPORT QString Format(double value, const QString& format = QString(),
                                  VbLocale locale = userLocale());

/// `Format(date, fmt)`: date tokens (d dd ddd dddd ddddd dddddd w ww m mm mmm mmmm q y yy yyyy
/// h hh n nn s ss AM/PM am/pm A/P a/p : /), letter case ignored, m/mm as minutes right after an
/// hour token; an empty format gives CStr(date).
VEMOGRIDLIB_EXPORT QString Format(const QDateTime& value, const QString& format = QString(),
                                  VbLocale locale = userLocale());

/// `Format(text, fmt)`: an empty format returns the text unchanged; a number format converts
/// the text with the locale scanner, a date format with CDate (a numeric text as a serial), and
/// a text that does not convert is returned unchanged; text formats (@ & < > !) apply to it.
VEMOGRIDLIB_EXPORT QString Format(const QString& text, const QString& format = QString(),
                                  VbLocale locale = userLocale());

} // namespace VemoGridLib::vb
