// SPDX-License-Identifier: MIT
// The texts of the month calendar: header, weekday row and the lunar text under a day.
#pragma once

#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QDate>
#include <QString>

namespace VemoGridLib {

class clsDate;

/// The header's name of `month` (1..12): simplified Chinese drops 月 from 十一 and 十二 so that
/// every name is two characters; English gives the full name of the user locale's Format
/// "mmmm"; traditional Chinese writes the whole name, 一月..十二月.
VEMOGRIDLIB_EXPORT QString calendarMonthName(int month, LanguageIndex language);
/// The weekday row's name of `column` (1 Sunday .. 7 Saturday): one character in Chinese, three
/// letters in English (Wednesday is "Wen").
VEMOGRIDLIB_EXPORT QString calendarWeekdayName(int column, LanguageIndex language);

/// The lunar text under `day`: its festival, else its solar term, else the lunar month's name
/// on the month's first day, else the lunar day's name; "" outside 1900-01-31..2100-12-31.
VEMOGRIDLIB_EXPORT QString calendarLunarText(clsDate& engine, const QDate& day);

} // namespace VemoGridLib
