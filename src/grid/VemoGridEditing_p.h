// SPDX-License-Identifier: MIT
// VemoGrid's editing session: the hidden cell editors, showing one over the current cell,
// committing its text, the editor's reports, the keyboard, step scrolling and the wheel.
#pragma once

#include "editors/ICellEventReceiver.h"

#include "common/VemoEnums.h"
#include "grid/VemoGrid.h"

#include <QObject>
#include <QPointer>

#include <array>

namespace VemoGridLib {

class CellEditor;
class VemoGridPrivate;

/// Selects the editor's whole text, as a freshly loaded editor shows it.
void selectWholeText(CellEditor& editor);

/// The session between a VemoGrid and its cell editors. One hidden editor of each kind is
/// created with the grid (`VemoTextBox1`, `VemoCheckBox1`, `VemoComboBox1`, `VemoDTPicker1`,
/// `VemoBtnTxt1`). When a data
/// cell becomes current by a click or a move key, the editor of its column type is loaded from
/// the cell and its `Column`, laid over the cell and focused; leaving the cell commits its text
/// through the editor's `Validate`. The session is the editors' receiver and raises the grid's
/// events for their reports.
class EditingSession final : public QObject, public ICellEventReceiver
{
public:
    explicit EditingSession(VemoGridPrivate& grid);
    /// Detaches the editors, which go with the grid's children.
    ~EditingSession() override;

    /// Creates the hidden editors (children of the grid).
    void createEditors();
    /// The editor over the current cell, or none.
    CellEditor* activeEditor() const { return m_active; }
    /// True while an editor is being placed: a scroll then does not commit.
    bool placing() const { return m_placing; }

    // ---- the session (VemoGridEditing.cpp) -------------------------------------------------
    /// Loads (unless one is open), places and focuses the editor of the current cell, when
    /// editing is enabled, events are not suppressed and the cell is a data cell.
    void showEditor();
    /// The editor commit: an unchanged text only hides the editor; otherwise `Validate`,
    /// `ValidateError` or `BeforeChange`, the cell write, the check-box drawing, `CellChanged`.
    /// Nothing while events are suppressed or no editor is open.
    void commit();
    /// Hides the open editor and detaches it from its column and the grid; the focus stays in
    /// the grid when the editor had it.
    void hideEditor();
    /// After a row operation: the editor of the current cell is shown again when the grid has
    /// the focus (so a program's row operation does not take the focus from elsewhere).
    void redisplay();
    /// What a click on a data cell does once the row marker moved: an open editor is
    /// committed, a hyperlink cell opens through the shell, any other cell gets its editor.
    void clickDataCell();
    /// The hosted grid's layout changed: the open editor follows its cell, or is committed
    /// when the cell went out of view.
    void followCell();
    /// A program wrote cell (`row`, `col`): when it is the edited one, the editor shows the new
    /// text, so that the commit does not put the old one back.
    void cellWritten(int row, int col);
    /// The link pointer over hyperlink cells with text (MouseMove of the hosted grid).
    void updateLinkPointer();

    // ---- keyboard, step scrolling, wheel (VemoGridKeyboard.cpp) ------------------------------
    /// The grid's key handling for a key from the hosted grid (`source` none) or an editor:
    /// Alt+Up/Down step-scroll and are swallowed; the move keys move between enterable cells.
    /// True when the key was the grid's (the hosted grid must not move on it as well).
    bool handleKey(short& keyCode, short& shift, CellEditor* source);
    /// One step of Alt+Up (`up`) or Alt+Down, in the direction `ScrollType` and the scroll
    /// bars give.
    void stepScroll(bool up);

    // ---- ICellEventReceiver: the editor's reports, raised as the grid's events ---------------
    void Change() override;
    void BeforeDropDown() override;
    void CellComboSelect(int Index, const QString& Value) override;
    void CellComboClick(const QString& Value) override;
    void Click() override;
    void DblClick() override;
    void KeyDown(short& KeyCode, short& Shift) override;
    void KeyPress(short& KeyAscii) override;
    void KeyUp(short& KeyCode, short& Shift) override;
    void MouseDown(short& Button, short& Shift, float& x, float& y) override;
    void MouseMove(short& Button, short& Shift, float& x, float& y) override;
    void MouseUp(short& Button, short& Shift, float& x, float& y) override;
    void ButtonClick() override;
    void ExitLocus() override;

protected:
    /// Wheel notches over the hosted grid and the editors become Alt+Up/Down.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The editor of a column type, or none.
    CellEditor* editorFor(VemoGridColType type) const;
    /// Loads `editor` from the current cell and its column.
    void load(CellEditor* editor, int row, int col);
    /// Lays the open editor over the current cell (scrolling it into view).
    void place();
    /// The open editor lost the focus to a widget outside it: the leave-cell step.
    void editorLostFocus(CellEditor* editor);
    /// True when the focus is in `editor` or one of its parts.
    static bool hasFocusWithin(const CellEditor* editor);
    /// A hyperlink cell with more than blanks: it opens through the shell and is not edited.
    bool isLink(int row, int col) const;
    /// Moves to (`row`, `col`): leave, move with one EnterCell, then as a click (no shell).
    void moveTo(int row, int col);
    /// The targets of the move keys; nothing when the key does not move.
    bool moveTarget(short keyCode, int& row, int& col);
    bool enterTarget(int& row, int& col);
    /// Columns the move keys stop at: wider than 15 twips, neither `Locked` nor `AutoAdd`.
    bool enterable(int col) const;
    int nextEnterableCol(int from, int step) const;
    int nextShownRow(int from, int step) const;
    /// Whether the wheel is turned into step scrolling now.
    bool wheelIntercepted() const;
    /// Sends Alt+Up or Alt+Down to the focused part of the grid, as a keystroke.
    void sendStepKey(bool up);
    /// Translates an editor's mouse report into grid twips and raises it.
    void relayMouse(void (VemoGrid::*signal)(short&, short&, float&, float&), short& button,
                    short& shift, float& x, float& y);

    VemoGridPrivate& g;
    /// Indexed by VemoGridColType; several types share one editor.
    std::array<QPointer<CellEditor>, 9> m_editors;
    CellEditor* m_active = nullptr;
    /// The cell the open editor edits.
    int m_row = 0;
    int m_col = 0;
    bool m_placing = false;
    bool m_committing = false;
    /// Set while the grid itself fills the editor: that is no change by the user.
    bool m_loading = false;
};

} // namespace VemoGridLib
