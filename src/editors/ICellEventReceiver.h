// SPDX-License-Identifier: MIT
// The interface through which a cell editor reports to its host.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

namespace VemoGridLib {

/// What a cell editor reports to its host (a `VemoGrid`, or a standalone `VemoComboBox` that is
/// its own host). The editor calls these before it handles an input itself, and continues with
/// the arguments a receiver may have changed: zeroing `KeyAscii` keeps a character out of the
/// text field, zeroing `KeyCode` cancels the editor's reaction to a key. A receiver may throw
/// `VemoError`; the editor reports the failure and keeps its state. The operations are declared
/// in their fixed order.
class VEMOGRIDLIB_EXPORT ICellEventReceiver
{
public:
    virtual ~ICellEventReceiver();

    /// The user changed the content (typed, pasted, toggled, took over a list row).
    virtual void Change() = 0;
    /// The list editor is about to show its drop-down list.
    virtual void BeforeDropDown() = 0;
    /// A list row became the selected row: `Index` counts data rows from 0, `Value` is its text.
    virtual void CellComboSelect(int Index, const QString& Value) = 0;
    /// The current row of the open list was committed (a click or Enter).
    virtual void CellComboClick(const QString& Value) = 0;
    /// A click in the editor's text field.
    virtual void Click() = 0;
    /// A double click in the editor's text field.
    virtual void DblClick() = 0;
    /// A key went down: VB key code and shift mask (1 Shift, 2 Ctrl, 4 Alt).
    virtual void KeyDown(short& KeyCode, short& Shift) = 0;
    /// A character key: the character's code, 0 to swallow it.
    virtual void KeyPress(short& KeyAscii) = 0;
    /// A key went up.
    virtual void KeyUp(short& KeyCode, short& Shift) = 0;
    /// Mouse over the editor: button mask (1 left, 2 right, 4 middle), shift mask, and the
    /// position in twips relative to the piece of the editor that received it.
    virtual void MouseDown(short& Button, short& Shift, float& x, float& y) = 0;
    virtual void MouseMove(short& Button, short& Shift, float& x, float& y) = 0;
    virtual void MouseUp(short& Button, short& Shift, float& x, float& y) = 0;
    /// The button of a button-text editor was pressed.
    virtual void ButtonClick() = 0;
    /// The editor as a whole lost the focus.
    virtual void ExitLocus() = 0;

protected:
    ICellEventReceiver() = default;
    ICellEventReceiver(const ICellEventReceiver&) = default;
    ICellEventReceiver& operator=(const ICellEventReceiver&) = default;
};

} // namespace VemoGridLib
