// SPDX-License-Identifier: MIT
// The enumerations shared by the grid, its columns and editors, with their values.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QtCore/qobjectdefs.h>

namespace VemoGridLib {
Q_NAMESPACE_EXPORT(VEMOGRIDLIB_EXPORT)

/// Editing type of a grid column.
enum VemoGridColType : int {
    eTextBox = 0,
    eCheckBox = 1,
    eComboBox = 2,
    eCalendar = 3,
    ehyperlink = 4,
    eButton = 5,
    eCurrency = 6,
    eNumeric = 7,
    eLong = 8,
};
Q_ENUM_NS(VemoGridColType)

/// Sort direction of the header-click sort.
enum VemoGridSortMode : int {
    SortNone = 0,
    SortAscending = 1,
    SortDescending = 2,
};
Q_ENUM_NS(VemoGridSortMode)

/// How a column sorts.
enum VemoSortTypeConstants : int {
    VemoSortNone = 0,
    VemoSortGeneric = 1,
    VemoSortNumeric = 2,
    VemoSortStringNoCase = 3,
    VemoSortString = 4,
    VemoSortDateTime = 5,
    VemoSortCurrency = 6,
};
Q_ENUM_NS(VemoSortTypeConstants)

/// Step-scrolling direction of the grid.
enum VemoGridScrollType : int {
    VemoScrollAuto = 0,
    VemoScrollVertical = 1,
    VemoScrollHorizontal = 2,
    VemoScrollNone = 3,
};
Q_ENUM_NS(VemoGridScrollType)

/// Border look of a control: `flat` 0 and `3D` 1 (a C++ name cannot start with a digit).
enum AppearanceConstants : int {
    flat = 0,
    ThreeD = 1,
};
Q_ENUM_NS(AppearanceConstants)

/// Text alignment of an editor: `Left Justify` 0, `Right Justify` 1, `Center` 2, `General` 3.
enum AlignmentConstants : int {
    LeftJustify = 0,
    RightJustify = 1,
    Center = 2,
    General = 3,
};
Q_ENUM_NS(AlignmentConstants)

/// Border of a control: `None` 0, `Fixed Single` 1 (`None` is prefixed: X11 defines a `None`
/// macro).
enum BorderStyleConstants : int {
    BorderNone = 0,
    FixedSingle = 1,
};
Q_ENUM_NS(BorderStyleConstants)

/// Language index of the messages: which of the three text sets a message uses.
enum LanguageIndex : int {
    SimplifiedChinese = 0,
    TraditionalChinese = 1,
    English = 2,
};
Q_ENUM_NS(LanguageIndex)

} // namespace VemoGridLib
