// SPDX-License-Identifier: MIT
// The FlexGrid constants and error numbers, with the type library's values.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QtCore/qobjectdefs.h>

namespace VemoGridLib::Flex {
Q_NAMESPACE_EXPORT(VEMOGRIDLIB_EXPORT)

/// `Sort` settings: 1–8 by kind and direction; 9 raises `Compare` for every pair.
enum SortSettings : int {
    flexSortNone = 0,
    flexSortGenericAscending = 1,
    flexSortGenericDescending = 2,
    flexSortNumericAscending = 3,
    flexSortNumericDescending = 4,
    flexSortStringNoCaseAscending = 5,
    flexSortStringNoCaseDescending = 6,
    flexSortStringAscending = 7,
    flexSortStringDescending = 8,
    flexSortCustom = 9,
};
Q_ENUM_NS(SortSettings)

/// `FillStyle`: Cell* and `Text` writes reach the current cell or the whole selection.
enum FillStyleSettings : int { flexFillSingle = 0, flexFillRepeat = 1 };
Q_ENUM_NS(FillStyleSettings)

/// `MergeCells`: which neighbouring cells with equal texts are drawn as one.
enum MergeCellsSettings : int {
    flexMergeNever = 0,
    flexMergeFree = 1,
    flexMergeRestrictRows = 2,
    flexMergeRestrictColumns = 3,
    flexMergeRestrictAll = 4,
};
Q_ENUM_NS(MergeCellsSettings)

/// `TextStyle`, `TextStyleFixed`, `CellTextStyle`: flat, raised or inset text.
enum TextStyleSettings : int {
    flexTextFlat = 0,
    flexTextRaised = 1,
    flexTextInset = 2,
    flexTextRaisedLight = 3,
    flexTextInsetLight = 4,
};
Q_ENUM_NS(TextStyleSettings)

/// `GridLines`, `GridLinesFixed`; 4 and 5 are the MSHFlexGrid additions.
enum GridLineSettings : int {
    flexGridNone = 0,
    flexGridFlat = 1,
    flexGridInset = 2,
    flexGridRaised = 3,
    flexGridDashes = 4,
    flexGridDots = 5,
};
Q_ENUM_NS(GridLineSettings)

/// `SelectionMode`: free, by whole rows or by whole columns.
enum SelectionModeSettings : int {
    flexSelectionFree = 0,
    flexSelectionByRow = 1,
    flexSelectionByColumn = 2,
};
Q_ENUM_NS(SelectionModeSettings)

/// `HighLight`: when the selection is shown highlighted.
enum HighLightSettings : int {
    flexHighlightNever = 0,
    flexHighlightAlways = 1,
    flexHighlightWithFocus = 2,
};
Q_ENUM_NS(HighLightSettings)

/// `FocusRect`: the frame drawn around the current cell.
enum FocusRectSettings : int { flexFocusNone = 0, flexFocusLight = 1, flexFocusHeavy = 2 };
Q_ENUM_NS(FocusRectSettings)

/// `AllowUserResizing`: whether the user may drag column widths, row heights or both.
enum AllowUserResizeSettings : int {
    flexResizeNone = 0,
    flexResizeColumns = 1,
    flexResizeRows = 2,
    flexResizeBoth = 3,
};
Q_ENUM_NS(AllowUserResizeSettings)

/// `ScrollBars`: which scroll bars the grid may show.
enum ScrollBarsSettings : int {
    flexScrollBarNone = 0,
    flexScrollBarHorizontal = 1,
    flexScrollBarVertical = 2,
    flexScrollBarBoth = 3,
};
Q_ENUM_NS(ScrollBarsSettings)

/// `ColAlignment`, `ColAlignmentFixed`, `CellAlignment`, `CellPictureAlignment`.
enum AlignmentSettings : int {
    flexAlignLeftTop = 0,
    flexAlignLeftCenter = 1,
    flexAlignLeftBottom = 2,
    flexAlignCenterTop = 3,
    flexAlignCenterCenter = 4,
    flexAlignCenterBottom = 5,
    flexAlignRightTop = 6,
    flexAlignRightCenter = 7,
    flexAlignRightBottom = 8,
    flexAlignGeneral = 9,
};
Q_ENUM_NS(AlignmentSettings)

/// `PictureType`: the `Picture` snapshot in colour or monochrome.
enum PictureTypeSettings : int { flexPictureColor = 0, flexPictureMonochrome = 1 };
Q_ENUM_NS(PictureTypeSettings)

/// `MousePointer`; 99 shows the pointer set with `setMouseIcon`.
enum MousePointerSettings : int {
    flexDefault = 0,
    flexArrow = 1,
    flexCross = 2,
    flexIBeam = 3,
    flexIcon = 4,
    flexSize = 5,
    flexSizeNESW = 6,
    flexSizeNS = 7,
    flexSizeNWSE = 8,
    flexSizeEW = 9,
    flexUpArrow = 10,
    flexHourglass = 11,
    flexNoDrop = 12,
    flexArrowHourGlass = 13,
    flexArrowQuestion = 14,
    flexSizeAll = 15,
    flexCustom = 99,
};
Q_ENUM_NS(MousePointerSettings)

/// Vertical scroll requests of a combo box's list grid, the values of SB_LINEUP..SB_PAGEDOWN.
enum ScrollRequest : int {
    flexLineUp = 0,
    flexLineDown = 1,
    flexPageUp = 2,
    flexPageDown = 3,
};
Q_ENUM_NS(ScrollRequest)

/// The error numbers FlexGrid raises, carried by `VemoError::number()`.
enum ErrorConstants : int {
    flexerrInvalidProcedureCall = 5,
    flexerrOutOfMemory = 7,
    flexerrInvalidPropertyValue = 380,
    flexerrSubscriptOutOfRange = 381,
    flexerrCannotRemoveFixedRow = 30000,
    flexerrCannotAddFixedRow = 30001,
    flexerrNoSuchRow = 30002,
    flexerrBadColForAlignment = 30004,
    flexerrBadAlignment = 30005,
    flexerrBadRow = 30009,
    flexerrBadCol = 30010,
    flexerrBadRowHeight = 30013,
    flexerrBadColWidth = 30014,
    flexerrCannotRemoveLastRow = 30015,
    flexerrFixedRowsTooMany = 30016,
    flexerrFixedColsTooMany = 30017,
};
Q_ENUM_NS(ErrorConstants)

} // namespace VemoGridLib::Flex
