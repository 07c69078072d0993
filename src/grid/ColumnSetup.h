// SPDX-License-Identifier: MIT
// The design-time settings of a grid's columns and their text form, the value of
// VemoGrid's `ColumnSetup` property.
#pragma once

#include <VemoGridLib/VbStrings.h>
#include <VemoGridLib/VemoEnums.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace VemoGridLib {

/// One column's design-time settings. A member left at its default is not written to the text
/// form and, when the settings are applied, leaves the column as it is.
struct VEMOGRIDLIB_EXPORT ColumnSettings
{
    /// The grid column, 1 or more.
    int Col = 1;
    /// The text of the column's header cell (row 0); empty leaves it.
    QString Header;
    /// The column width in twips; -1 leaves it.
    int Width = -1;
    /// The editing type, applied first: it sets the type's alignment, decimals and format.
    VemoGridColType ColType = eTextBox;
    /// Decimals of a numeric column, 0 to 15; -1 keeps the type's default. Currency and long
    /// columns have fixed decimals and refuse it.
    int DecimalLength = -1;
    /// The number or date format; empty keeps the type's default.
    QString FormatString;
    /// The range a typed number must lie in; unset keeps the column's default range.
    std::optional<double> MinValue;
    std::optional<double> MaxValue;
    bool Locked = false;
    bool AutoAdd = false;
    bool ShowZero = false;
    VemoSortTypeConstants SortType = VemoSortNone;
    /// The combo box items, the list columns of each separated by tabs.
    QStringList Items;
    /// The list's header texts, separated by tabs.
    QString ListHeader;
    /// The list's width in twips; -1 sizes it to its columns.
    int ListWidth = -1;
    int VisibleRows = 12;
    int SelectCol = 0;
    bool ShowHeader = true;
    bool AutoDropDown = false;
    bool HotTracking = true;
    vb::CompareMethod CompareMode = vb::vbBinaryCompare;

    friend bool operator==(const ColumnSettings&, const ColumnSettings&) = default;
};

/// Reads the text form of a column setup: one line per column, blank lines and lines starting
/// with `#` skipped. A line is the column number followed by `Key=Value` pairs, the keys being
/// the member names of `ColumnSettings` (`Item` once per combo item). A value is bare (no space,
/// quote or `=`) or double-quoted with the escapes `\"`, `\\`, `\t` and `\n`; enumerations are
/// written by name (`ColType=eNumeric`, `SortType=VemoSortNumeric`, `CompareMode=vbTextCompare`)
/// or number, booleans as `true` or `false`. For example:
///
///     1 Header=Product Width=1800 ColType=eComboBox ListHeader="Code\tName" Item="P1\tPen"
///     2 Header=Qty ColType=eNumeric DecimalLength=0 MinValue=0
///
/// The columns come back in the order of their lines. A text that does not read throws
/// `VemoError` (5) whose description names the line and what is wrong with it.
VEMOGRIDLIB_EXPORT QList<ColumnSettings> parseColumnSetup(const QString& text);

/// Writes `columns` in the text form, one line each, with only the settings that differ from
/// their defaults; `parseColumnSetup` reads it back to the same settings.
VEMOGRIDLIB_EXPORT QString formatColumnSetup(const QList<ColumnSettings>& columns);

} // namespace VemoGridLib
