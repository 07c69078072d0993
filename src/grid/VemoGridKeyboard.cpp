// SPDX-License-Identifier: MIT
// The grid's keyboard: moving between enterable cells with the arrows and Enter, Esc in a text
// editor, step scrolling with Alt+Up/Down, and the wheel turned into those keystrokes.
#include "grid/VemoGridEditing_p.h"

#include "grid/VemoGrid_p.h"

#include "common/VbKeys.h"
#include "editors/CellEditor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>

namespace VemoGridLib {

namespace {

constexpr short AltOnly = 4;
/// A column this narrow or narrower is treated as hidden by the move keys.
constexpr int NarrowColumnTwips = 15;
/// One notch of a classic mouse wheel; finer deltas (touchpads, free-spinning wheels) do not
/// step-scroll.
constexpr int WheelNotch = 120;

bool isMoveKey(short keyCode)
{
    return keyCode == vbKeyLeft || keyCode == vbKeyUp || keyCode == vbKeyRight ||
           keyCode == vbKeyDown || keyCode == vbKeyReturn;
}

} // namespace

// ---- moving between cells --------------------------------------------------------------------

bool EditingSession::enterable(int col) const
{
    if (g.q->COLWIDTH(col) <= NarrowColumnTwips)
        return false;
    const VemoGridLib::Column* const column = g.columnOrNull(col);
    return !column || (!column->Locked() && !column->AutoAdd());
}

int EditingSession::nextEnterableCol(int from, int step) const
{
    for (int c = from + step; c >= g.flex->FixedCols() && c < g.flex->Cols(); c += step) {
        if (enterable(c))
            return c;
    }
    return -1;
}

int EditingSession::nextShownRow(int from, int step) const
{
    for (int r = from + step; r >= g.flex->FixedRows() && r < g.flex->Rows(); r += step) {
        if (g.flex->RowHeight(r) != 0)
            return r;
    }
    return -1;
}

bool EditingSession::enterTarget(int& row, int& col)
{
    if (const int next = nextEnterableCol(col, 1); next >= 0) {
        col = next;
        return true;
    }
    const int first = nextEnterableCol(g.flex->FixedCols() - 1, 1);
    if (first < 0)
        return false;
    if (const int below = nextShownRow(row, 1); below >= 0) {
        row = below;
        col = first;
        return true;
    }
    // The last cell of the grid: Enter adds a row when the grid may grow and the row is not an
    // empty one that the grid keeps from repeating. What was just typed counts: it is committed
    // first (a refused row gets its editor back).
    if (!g.autoGrow)
        return false;
    commit();
    if (!g.nullLine && g.rowIsEmpty(row)) {
        showEditor();
        return false;
    }
    g.q->setRows(g.flex->Rows() + 1);
    row = g.flex->Rows() - 1;
    col = first;
    return true;
}

bool EditingSession::moveTarget(short keyCode, int& row, int& col)
{
    if (keyCode == vbKeyReturn)
        return enterTarget(row, col);
    const bool vertical = keyCode == vbKeyUp || keyCode == vbKeyDown;
    const int step = keyCode == vbKeyUp || keyCode == vbKeyLeft ? -1 : 1;
    const int found = vertical ? nextShownRow(row, step) : nextEnterableCol(col, step);
    if (found < 0)
        return false;
    (vertical ? row : col) = found;
    return true;
}

void EditingSession::moveTo(int row, int col)
{
    FlexGrid* const flex = g.flex;
    g.leaveCellContained();
    g.moveHostedCell(row, col);
    g.leaveAlreadyDone = false;
    g.hostedEnterCell();
    g.moveMarker(row);
    if (isLink(row, col)) {
        hideEditor();
        return;
    }
    showEditor();
    if (!m_active)
        flex->setFocus(Qt::OtherFocusReason);
}

bool EditingSession::handleKey(short& keyCode, short& shift, CellEditor* source)
{
    if (shift == AltOnly && (keyCode == vbKeyUp || keyCode == vbKeyDown) &&
        g.scrollType != VemoScrollNone) {
        stepScroll(keyCode == vbKeyUp);
        keyCode = 0;
        shift = 0;
        return true;
    }
    if (keyCode == vbKeyEscape && source && source->hasTextField()) {
        // Esc puts back the text the cell had when the edit began; the edit goes on.
        source->setText(g.flex->TextMatrix(m_row, m_col));
        selectWholeText(*source);
        return false;
    }
    if (!isMoveKey(keyCode) || (m_active && m_active->IsDropDown()))
        return false;
    if (source && source->hasTextField()) {
        // Inside a text, Left and Right move the caret until it reaches the text's edge.
        if (keyCode == vbKeyLeft && source->SelStart() > 0)
            return false;
        if (keyCode == vbKeyRight && source->SelStart() < source->Text().size())
            return false;
    }
    int row = g.flex->Row();
    int col = g.flex->Col();
    if (!moveTarget(keyCode, row, col)) {
        if (keyCode == vbKeyReturn)
            keyCode = 0;
        return true;
    }
    moveTo(row, col);
    return true;
}

// ---- step scrolling ----------------------------------------------------------------------------

void EditingSession::stepScroll(bool up)
{
    FlexGrid* const flex = g.flex;
    const bool vertical = g.cells.hasScrollBar(Qt::Vertical);
    const bool horizontal = g.cells.hasScrollBar(Qt::Horizontal);
    bool alongRows = false;
    switch (g.scrollType) {
    case VemoScrollVertical:
        if (!vertical)
            return;
        alongRows = true;
        break;
    case VemoScrollHorizontal:
        if (!horizontal)
            return;
        break;
    case VemoScrollAuto:
        if (!vertical && !horizontal)
            return;
        alongRows = vertical;
        break;
    case VemoScrollNone:
        return;
    }
    const int step = g.scrollNum;
    if (alongRows) {
        const int top = flex->TopRow();
        if (up) {
            if (top <= flex->FixedRows())
                return;
            flex->setTopRow(std::max(top - step, flex->FixedRows()));
        } else {
            if (top >= g.topRowLimit)
                return;
            flex->setTopRow(std::min(top + step, flex->Rows() - 1));
            if (flex->TopRow() == top)
                g.topRowLimit = top;
        }
        flex->setRow(flex->TopRow());
        g.moveMarker(flex->TopRow());
        return;
    }
    const int left = flex->LeftCol();
    if (up) {
        if (left <= flex->FixedCols())
            return;
        flex->setLeftCol(std::max(left - step, flex->FixedCols()));
    } else {
        if (left >= g.leftColLimit)
            return;
        flex->setLeftCol(std::min(left + step, flex->Cols() - 1));
        if (flex->LeftCol() == left)
            g.leftColLimit = left;
    }
}

// ---- the wheel ---------------------------------------------------------------------------------

bool EditingSession::wheelIntercepted() const
{
    if (g.scrollType == VemoScrollNone)
        return false;
    if (m_active && hasFocusWithin(m_active))
        return true;
    return g.flex->hasFocus() && g.scrollNum >= 1;
}

void EditingSession::sendStepKey(bool up)
{
    QWidget* const target = m_active && hasFocusWithin(m_active) ? m_active->window()->focusWidget()
                                                                 : static_cast<QWidget*>(g.flex);
    const Qt::Key key = up ? Qt::Key_Up : Qt::Key_Down;
    QKeyEvent press(QEvent::KeyPress, key, Qt::AltModifier);
    QCoreApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::AltModifier);
    QCoreApplication::sendEvent(target, &release);
}

bool EditingSession::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || !wheelIntercepted())
        return QObject::eventFilter(watched, event);
    const auto* wheel = static_cast<QWheelEvent*>(event);
    const QPoint delta = wheel->angleDelta();
    const bool plainNotch = delta.x() == 0 && std::abs(delta.y()) == WheelNotch &&
                            wheel->buttons() == Qt::NoButton &&
                            wheel->modifiers() == Qt::NoModifier;
    if (plainNotch)
        catchingErrors("VemoGrid wheel", [&] { sendStepKey(delta.y() > 0); });
    // Every wheel event over a focused grid is the grid's: a fine-grained one scrolls nothing.
    return true;
}

} // namespace VemoGridLib
