// SPDX-License-Identifier: MIT
// OLE colour values (0x00BBGGRR, or 0x80000000 | n for Windows system colour n) and QColor.
#pragma once

#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QColor>
#include <QPalette>

namespace VemoGridLib {

/// A colour as VB holds it in OLE_COLOR properties and forms save it
/// (0x00BBGGRR): 255 is red and 0xFF0000 blue; a value with the top bit set
/// names a Windows system colour by its index in the low bits.
using OleColor = quint32;

/// The top bit that marks a system colour (&H80000000 + n).
inline constexpr OleColor SystemColorFlag = 0x80000000u;

// VB's system colour constants (SystemColorConstants) with their COLOR_* index, as written in
// the saved-property defaults of the controls and of FlexGrid. toQColor() maps
// each to a QPalette role (the table is in OleColor.cpp).

inline constexpr OleColor vbScrollBars = 0x80000000u;       ///< COLOR_SCROLLBAR (0)
inline constexpr OleColor vbDesktop = 0x80000001u;          ///< COLOR_BACKGROUND (1)
inline constexpr OleColor vbActiveTitleBar = 0x80000002u;   ///< COLOR_ACTIVECAPTION (2)
inline constexpr OleColor vbInactiveTitleBar = 0x80000003u; ///< COLOR_INACTIVECAPTION (3)
inline constexpr OleColor vbMenuBar = 0x80000004u;          ///< COLOR_MENU (4), menu background
inline constexpr OleColor vbWindowBackground = 0x80000005u; ///< COLOR_WINDOW (5), cell background
inline constexpr OleColor vbWindowFrame = 0x80000006u;      ///< COLOR_WINDOWFRAME (6)
inline constexpr OleColor vbMenuText = 0x80000007u;     ///< COLOR_MENUTEXT (7), grid ForeColorFixed
inline constexpr OleColor vbWindowText = 0x80000008u;   ///< COLOR_WINDOWTEXT (8), ForeColor
inline constexpr OleColor vbTitleBarText = 0x80000009u; ///< COLOR_CAPTIONTEXT (9)
inline constexpr OleColor vbActiveBorder = 0x8000000Au; ///< COLOR_ACTIVEBORDER (10)
inline constexpr OleColor vbInactiveBorder = 0x8000000Bu;       ///< COLOR_INACTIVEBORDER (11)
inline constexpr OleColor vbApplicationWorkspace = 0x8000000Cu; ///< COLOR_APPWORKSPACE (12)
inline constexpr OleColor vbHighlight = 0x8000000Du;     ///< COLOR_HIGHLIGHT (13), BackColorSel
inline constexpr OleColor vbHighlightText = 0x8000000Eu; ///< COLOR_HIGHLIGHTTEXT (14), ForeColorSel
inline constexpr OleColor vbButtonFace = 0x8000000Fu;    ///< COLOR_BTNFACE (15), BackColorFixed/Bkg
inline constexpr OleColor vbButtonShadow = 0x80000010u;  ///< COLOR_BTNSHADOW (16)
inline constexpr OleColor vbGrayText = 0x80000011u;      ///< COLOR_GRAYTEXT (17)
inline constexpr OleColor vbButtonText = 0x80000012u;    ///< COLOR_BTNTEXT (18), ForeColorFixed
inline constexpr OleColor vbInactiveCaptionText = 0x80000013u; ///< COLOR_INACTIVECAPTIONTEXT (19)
inline constexpr OleColor vb3DHighlight = 0x80000014u;         ///< COLOR_BTNHIGHLIGHT (20)
inline constexpr OleColor vb3DDKShadow = 0x80000015u;          ///< COLOR_3DDKSHADOW (21)
inline constexpr OleColor vb3DLight = 0x80000016u;             ///< COLOR_3DLIGHT (22)
inline constexpr OleColor vbInfoText = 0x80000017u;       ///< COLOR_INFOTEXT (23), tool tip text
inline constexpr OleColor vbInfoBackground = 0x80000018u; ///< COLOR_INFOBK (24), tool tip
/// VB's alias of vbButtonFace.
inline constexpr OleColor vb3DFace = vbButtonFace;
/// VB's alias of vbButtonShadow.
inline constexpr OleColor vb3DShadow = vbButtonShadow;

// Indices 26..30 came after VB6 and have no VB constant; these names follow COLOR_*.

inline constexpr OleColor vbHotLight = 0x8000001Au;                ///< COLOR_HOTLIGHT (26)
inline constexpr OleColor vbGradientActiveCaption = 0x8000001Bu;   ///< COLOR_GRADIENT... (27)
inline constexpr OleColor vbGradientInactiveCaption = 0x8000001Cu; ///< COLOR_GRADIENT... (28)
inline constexpr OleColor vbMenuHighlight = 0x8000001Du;           ///< COLOR_MENUHILIGHT (29)
inline constexpr OleColor vbMenuBarFlat = 0x8000001Eu;             ///< COLOR_MENUBAR (30)

/// True when `color` names a system colour (top bit set), valid index or not.
constexpr bool isSystemColor(OleColor color)
{
    return (color & SystemColorFlag) != 0;
}

/// VB's `RGB(red, green, blue)`: 0x00BBGGRR. As in VB, a component above 255 counts as 255
/// and a negative one raises run-time error 5 (VemoError::invalidProcedureCall()).
constexpr OleColor rgb(int red, int green, int blue)
{
    if (red < 0 || green < 0 || blue < 0)
        throw VemoError::invalidProcedureCall();
    const auto byte = [](int component) {
        return OleColor(component > 255 ? 255 : component);
    };
    return byte(red) | byte(green) << 8 | byte(blue) << 16;
}

/// The QColor to paint an OLE colour with (every colour property of the grid, the editors and
/// the date controls). An RGB value converts exactly. A system colour takes the colour of its
/// QPalette role in `palette` (the painting widget's palette; by default the application's),
/// in the palette's current colour group except where the table in OleColor.cpp names one.
/// An unknown system index (25, above 30) and a value with any of bits 24..30 set (Windows
/// palette-index forms, which VB does not produce) give an invalid QColor, so a caller can fall
/// back to its default.
VEMOGRIDLIB_EXPORT QColor toQColor(OleColor color, const QPalette& palette = QPalette());

/// The OLE colour of a QColor's red, green and blue, with the alpha dropped (a colour chosen
/// in a Qt dialog or taken from a palette, stored back into a colour property). An invalid
/// QColor gives 0 (black), the value Qt reports for its components.
VEMOGRIDLIB_EXPORT OleColor fromQColor(const QColor& color);

/// The WCAG contrast ratio of two colours, from 1 (the same luminance) to 21 (black on white).
VEMOGRIDLIB_EXPORT double contrastRatio(const QColor& a, const QColor& b);

/// The colour text of OLE colour `text` is drawn with on a background of OLE colour `back`.
/// A system text colour follows the palette while the background is one the program chose:
/// under a dark palette the window text is light, and the program's light colours (bands,
/// read-only cells) would swallow it. So where a system text colour falls below 4.5:1 against
/// an RGB background it becomes black or white, whichever reads better. Everything else is
/// as toQColor() gives it: text and background both from the palette are the palette's own
/// pairing, an RGB text colour is the program's choice, and a text in its own background's
/// colour is hidden on purpose.
VEMOGRIDLIB_EXPORT QColor readableTextColor(OleColor text, OleColor back,
                                            const QPalette& palette = QPalette());

} // namespace VemoGridLib
