// SPDX-License-Identifier: MIT
#include "common/OleColor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace VemoGridLib {
namespace {

/// Where a system colour is read in a QPalette. `group` empty means the palette's current
/// group, so a disabled or inactive widget paints as Qt's styles expect.
struct PaletteSlot
{
    std::optional<QPalette::ColorGroup> group;
    QPalette::ColorRole role;
};

constexpr auto Inactive = QPalette::Inactive;

/// Windows system colour index → QPalette role. Qt's button roles are Windows's 3-D roles
/// (Light = BTNHIGHLIGHT, Midlight = 3DLIGHT, Dark = BTNSHADOW, Shadow = 3DDKSHADOW), the text
/// background of lists and edits (COLOR_WINDOW) is Base, not Window, and the window-level
/// surfaces (menus, MDI workspace) follow what QMenu and QMdiArea paint with. The caption
/// colours of an inactive window are the Inactive group's highlight colours.
///
///  index name                     role
///  0     SCROLLBAR                Midlight (the scroll track, as 3DLIGHT in the classic scheme)
///  1     BACKGROUND (desktop)     Dark (no desktop role; a dark backdrop)
///  2     ACTIVECAPTION            Highlight
///  3     INACTIVECAPTION          Inactive Highlight
///  4     MENU                     Window (QMenu's background)
///  5     WINDOW                   Base
///  6     WINDOWFRAME              Shadow
///  7     MENUTEXT                 WindowText (QMenu's text)
///  8     WINDOWTEXT               Text (the text on Base)
///  9     CAPTIONTEXT              HighlightedText
///  10    ACTIVEBORDER             Button
///  11    INACTIVEBORDER           Inactive Button
///  12    APPWORKSPACE             Dark (QMdiArea's background)
///  13    HIGHLIGHT                Highlight
///  14    HIGHLIGHTTEXT            HighlightedText
///  15    BTNFACE                  Button
///  16    BTNSHADOW                Dark
///  17    GRAYTEXT                 Disabled Text (Qt's grey text of disabled items)
///  18    BTNTEXT                  ButtonText
///  19    INACTIVECAPTIONTEXT      Inactive HighlightedText
///  20    BTNHIGHLIGHT             Light
///  21    3DDKSHADOW               Shadow
///  22    3DLIGHT                  Midlight
///  23    INFOTEXT                 ToolTipText
///  24    INFOBK                   ToolTipBase
///  25    (unused)                 none: an invalid QColor
///  26    HOTLIGHT                 Link
///  27    GRADIENTACTIVECAPTION    Highlight
///  28    GRADIENTINACTIVECAPTION  Inactive Highlight
///  29    MENUHILIGHT              Highlight
///  30    MENUBAR                  Window
constexpr std::array<std::optional<PaletteSlot>, 31> SystemColorSlots{{
    PaletteSlot{{}, QPalette::Midlight},
    PaletteSlot{{}, QPalette::Dark},
    PaletteSlot{{}, QPalette::Highlight},
    PaletteSlot{Inactive, QPalette::Highlight},
    PaletteSlot{{}, QPalette::Window},
    PaletteSlot{{}, QPalette::Base},
    PaletteSlot{{}, QPalette::Shadow},
    PaletteSlot{{}, QPalette::WindowText},
    PaletteSlot{{}, QPalette::Text},
    PaletteSlot{{}, QPalette::HighlightedText},
    PaletteSlot{{}, QPalette::Button},
    PaletteSlot{Inactive, QPalette::Button},
    PaletteSlot{{}, QPalette::Dark},
    PaletteSlot{{}, QPalette::Highlight},
    PaletteSlot{{}, QPalette::HighlightedText},
    PaletteSlot{{}, QPalette::Button},
    PaletteSlot{{}, QPalette::Dark},
    PaletteSlot{QPalette::Disabled, QPalette::Text},
    PaletteSlot{{}, QPalette::ButtonText},
    PaletteSlot{Inactive, QPalette::HighlightedText},
    PaletteSlot{{}, QPalette::Light},
    PaletteSlot{{}, QPalette::Shadow},
    PaletteSlot{{}, QPalette::Midlight},
    PaletteSlot{{}, QPalette::ToolTipText},
    PaletteSlot{{}, QPalette::ToolTipBase},
    std::nullopt,
    PaletteSlot{{}, QPalette::Link},
    PaletteSlot{{}, QPalette::Highlight},
    PaletteSlot{Inactive, QPalette::Highlight},
    PaletteSlot{{}, QPalette::Highlight},
    PaletteSlot{{}, QPalette::Window},
}};

/// The least contrast ratio WCAG asks for normal-size text.
constexpr double MinTextContrast = 4.5;

/// Bits 24..30: zero in every RGB value; in a system colour, part of its index.
constexpr OleColor HighBits = 0x7F000000u;

} // namespace

QColor toQColor(OleColor color, const QPalette& palette)
{
    if (isSystemColor(color)) {
        const OleColor index = color & ~SystemColorFlag;
        if (index >= SystemColorSlots.size() || !SystemColorSlots[index])
            return {};
        const PaletteSlot& slot = *SystemColorSlots[index];
        return palette.color(slot.group.value_or(palette.currentColorGroup()), slot.role);
    }
    if ((color & HighBits) != 0)
        return {};
    return QColor(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

OleColor fromQColor(const QColor& color)
{
    const QColor rgbColor = color.toRgb();
    return rgb(rgbColor.red(), rgbColor.green(), rgbColor.blue());
}

double contrastRatio(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double channel) {
            return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        const QColor rgb = color.toRgb();
        return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
               0.0722 * linear(rgb.blueF());
    };
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor readableTextColor(OleColor text, OleColor back, const QPalette& palette)
{
    const QColor resolved = toQColor(text, palette);
    if (!isSystemColor(text) || isSystemColor(back) || text == back)
        return resolved;
    const QColor background = toQColor(back, palette);
    if (!resolved.isValid() || !background.isValid() ||
        contrastRatio(resolved, background) >= MinTextContrast)
        return resolved;
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return contrastRatio(black, background) >= contrastRatio(white, background) ? black : white;
}

} // namespace VemoGridLib
