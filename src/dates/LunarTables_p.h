// SPDX-License-Identifier: MIT
// The constant numeric tables of the lunar calendar engine `clsDate`.
#pragma once

#include <QtGlobal>

#include <array>

namespace VemoGridLib::LunarTables {

/// The first and last lunar years of the tables: 1900..2049, extended to 2100 with rows in the
/// same encoding.
inline constexpr int FirstYear = 1900;
inline constexpr int LastYear = 2100;
inline constexpr int YearCount = LastYear - FirstYear + 1;

/// `LunarInfo`, one per lunar year: bits 0–3 the leap month (0 for none), bits 4–15 the twelve
/// ordinary months (month m is bit 0x10000 >> m, set = 30 days), bit 16 the leap month's length,
/// bit 20 always set as stored and never meaningful.
// clang-format off
inline constexpr std::array<quint32, YearCount> LunarInfo = {
    0x104BD8, 0x104AE0, 0x10A570, 0x1054D5, 0x10D260, // 1900
    0x10D950, 0x116554, 0x1056A0, 0x109AD0, 0x1055D2, // 1905
    0x104AE0, 0x10A5B6, 0x10A4D0, 0x10D250, 0x11D255, // 1910
    0x10B540, 0x10D6A0, 0x10ADA2, 0x1095B0, 0x114977, // 1915
    0x104970, 0x10A4B0, 0x10B4B5, 0x106A50, 0x106D40, // 1920
    0x11AB54, 0x102B60, 0x109570, 0x1052F2, 0x104970, // 1925
    0x106566, 0x10D4A0, 0x10EA50, 0x106E95, 0x105AD0, // 1930
    0x102B60, 0x1186E3, 0x1092E0, 0x11C8D7, 0x10C950, // 1935
    0x10D4A0, 0x11D8A6, 0x10B550, 0x1056A0, 0x11A5B4, // 1940
    0x1025D0, 0x1092D0, 0x10D2B2, 0x10A950, 0x10B557, // 1945
    0x106CA0, 0x10B550, 0x115355, 0x104DA0, 0x10A5D0, // 1950
    0x114573, 0x1052D0, 0x10A9A8, 0x10E950, 0x106AA0, // 1955
    0x10AEA6, 0x10AB50, 0x104B60, 0x10AAE4, 0x10A570, // 1960
    0x105260, 0x10F263, 0x10D950, 0x105B57, 0x1056A0, // 1965
    0x1096D0, 0x104DD5, 0x104AD0, 0x10A4D0, 0x10D4D4, // 1970
    0x10D250, 0x10D558, 0x10B540, 0x10B5A0, 0x1195A6, // 1975
    0x1095B0, 0x1049B0, 0x10A974, 0x10A4B0, 0x10B27A, // 1980
    0x106A50, 0x106D40, 0x10AF46, 0x10AB60, 0x109570, // 1985
    0x104AF5, 0x104970, 0x1064B0, 0x1074A3, 0x10EA50, // 1990
    0x106B58, 0x1055C0, 0x10AB60, 0x1096D5, 0x1092E0, // 1995
    0x10C960, 0x10D954, 0x10D4A0, 0x10DA50, 0x107552, // 2000
    0x1056A0, 0x10ABB7, 0x1025D0, 0x1092D0, 0x10CAB5, // 2005
    0x10A950, 0x10B4A0, 0x10BAA4, 0x10AD50, 0x1055D9, // 2010
    0x104BA0, 0x10A5B0, 0x115176, 0x1052B0, 0x10A930, // 2015
    0x107954, 0x106AA0, 0x10AD50, 0x105B52, 0x104B60, // 2020
    0x10A6E6, 0x10A4E0, 0x10D260, 0x10EA65, 0x10D530, // 2025
    0x105AA0, 0x1076A3, 0x1096D0, 0x104BD7, 0x104AD0, // 2030
    0x10A4D0, 0x11D0B6, 0x10D250, 0x10D520, 0x10DD45, // 2035
    0x10B5A0, 0x1056D0, 0x1055B2, 0x1049B0, 0x10A577, // 2040
    0x10A4B0, 0x10AA50, 0x11B255, 0x106D20, 0x10ADA0, // 2045
    0x114B63, 0x109370, 0x1049F8, 0x104970, 0x1064B0, // 2050
    0x1168A6, 0x10EA50, 0x106B20, 0x11A6C4, 0x10AAE0, // 2055
    0x1092E0, 0x10D2E3, 0x10C960, 0x10D557, 0x10D4A0, // 2060
    0x10DA50, 0x105D55, 0x1056A0, 0x10A6D0, 0x1055D4, // 2065
    0x1052D0, 0x10A9B8, 0x10A950, 0x10B4A0, 0x10B6A6, // 2070
    0x10AD50, 0x1055A0, 0x10ABA4, 0x10A5B0, 0x1052B0, // 2075
    0x10B273, 0x106930, 0x107337, 0x106AA0, 0x10AD50, // 2080
    0x114B55, 0x104B60, 0x10A570, 0x1054E4, 0x10D160, // 2085
    0x10E968, 0x10D520, 0x10DAA0, 0x116AA6, 0x1056D0, // 2090
    0x104AE0, 0x10A9D4, 0x10A2D0, 0x10D150, 0x10F252, // 2095
    0x10D520, // 2100
};
// clang-format on

/// `LunarYearLength`: days of each lunar year, a table of its own, read directly;
/// the static_assert below proves every entry equals the sum `LunarInfo` gives.
// clang-format off
inline constexpr std::array<int, YearCount> LunarYearLength = {
    384, 354, 355, 383, 354, 355, 384, 354, 355, 384, // 1900
    354, 384, 354, 354, 384, 354, 355, 384, 355, 384, // 1910
    354, 354, 384, 354, 354, 385, 354, 355, 384, 354, // 1920
    383, 354, 355, 384, 355, 354, 384, 354, 384, 354, // 1930
    354, 384, 355, 354, 385, 354, 354, 384, 354, 384, // 1940
    354, 355, 384, 354, 355, 384, 354, 383, 355, 354, // 1950
    384, 355, 354, 384, 355, 353, 384, 355, 384, 354, // 1960
    355, 384, 354, 354, 384, 354, 384, 354, 355, 384, // 1970
    355, 354, 384, 354, 384, 354, 354, 384, 355, 355, // 1980
    384, 354, 354, 383, 355, 384, 354, 355, 384, 354, // 1990
    354, 384, 354, 355, 384, 354, 385, 354, 354, 384, // 2000
    354, 354, 384, 355, 384, 354, 355, 384, 354, 354, // 2010
    384, 354, 355, 384, 354, 384, 354, 354, 384, 355, // 2020
    354, 384, 355, 384, 354, 354, 384, 354, 354, 384, // 2030
    355, 355, 384, 354, 384, 354, 354, 384, 354, 355, // 2040
    384, 355, 384, 354, 354, 383, 355, 354, 384, 355, // 2050
    354, 384, 354, 384, 354, 355, 384, 354, 355, 384, // 2060
    354, 384, 354, 354, 384, 355, 354, 384, 355, 354, // 2070
    384, 354, 384, 354, 355, 384, 354, 355, 383, 354, // 2080
    384, 354, 355, 384, 355, 354, 384, 354, 354, 384, // 2090
    354, // 2100
};
// clang-format on

/// `SolarTermMinutes`: minutes from the start of the solar year to each term.
inline constexpr std::array<int, 24> SolarTermMinutes = {
    0,      21208,  42467,  63836,  85337,  107014, 128867, 150921, 173149, 195551, 218072, 240693,
    263343, 285989, 308563, 331033, 353350, 375494, 397447, 419210, 440795, 462224, 483532, 504758,
};

/// The length of a lunar year as `LunarInfo` encodes it: twelve months of 29 or 30 days plus the
/// leap month, if any.
constexpr int yearLengthFromInfo(quint32 info)
{
    int days = 0;
    for (int month = 1; month <= 12; ++month)
        days += (info & (0x10000u >> month)) != 0 ? 30 : 29;
    if ((info & 0xFu) != 0)
        days += (info & 0x10000u) != 0 ? 30 : 29;
    return days;
}

/// True when every `LunarYearLength` entry equals the sum of its `LunarInfo` entry.
constexpr bool yearLengthsMatchInfo()
{
    for (int index = 0; index < YearCount; ++index) {
        if (LunarYearLength[index] != yearLengthFromInfo(LunarInfo[index]))
            return false;
    }
    return true;
}

static_assert(yearLengthsMatchInfo(), "LunarYearLength must agree with LunarInfo");

} // namespace VemoGridLib::LunarTables
