// SPDX-License-Identifier: MIT
// Typed accessors for the Q_PROPERTYs that Qt Designer and other property editors show: an
// enumeration property offers its names in a drop-down and a colour property a colour editor,
// while the C++ members keep the library's int and OleColor signatures.
#pragma once

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/OleColor.h>

/// Declares `enum<Name>()` and `guardedSetEnum<Name>()` for `Q_PROPERTY(Enum Name READ
/// enum<Name> WRITE guardedSetEnum<Name>)` over the int members `Name()` / `set<Name>()`. A refused
/// value is reported as its number, as the int property reported it.
#define VEMO_ENUM_PROPERTY(Enum, Name)                                                             \
    Enum enum##Name() const                                                                        \
    {                                                                                              \
        return Enum(Name());                                                                       \
    }                                                                                              \
    void guardedSetEnum##Name(Enum value) noexcept                                                 \
    {                                                                                              \
        VemoGridLib::writeProperty(this, #Name, int(value), [&] { set##Name(int(value)); });       \
    }

/// Declares `color<Name>()`, `guardedSetColor<Name>()` and `resetColor<Name>()` for
/// `Q_PROPERTY(QColor Name READ color<Name> WRITE guardedSetColor<Name> RESET resetColor<Name>)`
/// over the OleColor members. A system colour reads as the colour it paints with in the
/// control's palette; a colour written takes its red, green and blue; a reset restores `Default`
/// (a system colour stays one).
#define VEMO_COLOR_PROPERTY(Name, Default)                                                         \
    QColor color##Name() const                                                                     \
    {                                                                                              \
        return VemoGridLib::toQColor(Name(), palette());                                           \
    }                                                                                              \
    void guardedSetColor##Name(const QColor& value) noexcept                                       \
    {                                                                                              \
        VemoGridLib::writeProperty(this, #Name, value,                                             \
                                   [&] { set##Name(VemoGridLib::fromQColor(value)); });            \
    }                                                                                              \
    void resetColor##Name() noexcept                                                               \
    {                                                                                              \
        VemoGridLib::writeProperty(this, #Name, Default, [&] { set##Name(Default); });             \
    }
