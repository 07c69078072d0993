// SPDX-License-Identifier: MIT
// The editing session: the hidden editors, loading, placing and showing one over the current
// cell, committing its text, hiding it, and the editor's reports raised as the grid's events.
#include "grid/VemoGridEditing_p.h"

#include "grid/VemoGrid_p.h"

#include "common/Messages.h"
#include "common/Twips.h"
#include "common/VemoError.h"
#include "dates/VemoDTPicker.h"
#include "editors/CellEditor.h"
#include "editors/VemoBtnTxt.h"
#include "editors/VemoCheckBox.h"
#include "editors/VemoComboBox.h"
#include "editors/VemoTextBox.h"
#include "vb/VbStrings.h"

#include <QApplication>
#include <QCursor>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace VemoGridLib {

namespace {

/// The editor alignment of a hosted column alignment: left 0..2, centre 3..5, right 6..8,
/// general 9.
int editorAlignment(int columnAlignment)
{
    if (columnAlignment >= 0 && columnAlignment <= 2)
        return LeftJustify;
    if (columnAlignment >= 3 && columnAlignment <= 5)
        return Center;
    if (columnAlignment >= 6 && columnAlignment <= 8)
        return RightJustify;
    return General;
}

} // namespace

void selectWholeText(CellEditor& editor)
{
    editor.setSelStart(0);
    editor.setSelLength(int(editor.Text().size()));
}

EditingSession::EditingSession(VemoGridPrivate& grid)
    : g(grid)
{}

EditingSession::~EditingSession()
{
    // The editors outlive the session by a moment (they are the grid's children): nothing may
    // reach the session from them any more, not even a focus change while they are destroyed.
    for (const QPointer<CellEditor>& editor : m_editors) {
        if (editor) {
            editor->setEventReceiver(nullptr);
            editor->disconnect(this);
        }
    }
}

void EditingSession::createEditors()
{
    const auto add = [this](CellEditor* editor, const char* name,
                            std::initializer_list<VemoGridColType> types) {
        editor->setObjectName(QLatin1String(name));
        editor->hide();
        editor->installEventFilter(this);
        connect(editor, &CellEditor::LostFocus, this, [this, editor] { editorLostFocus(editor); });
        for (const VemoGridColType type : types)
            m_editors[std::size_t(type)] = editor;
    };
    add(new VemoTextBox(g.q), "VemoTextBox1", {eTextBox, ehyperlink, eCurrency, eNumeric, eLong});
    add(new VemoCheckBox(g.q), "VemoCheckBox1", {eCheckBox});
    add(new VemoComboBox(g.q), "VemoComboBox1", {eComboBox});
    add(new VemoDTPicker(g.q), "VemoDTPicker1", {eCalendar});
    add(new VemoBtnTxt(g.q), "VemoBtnTxt1", {eButton});
    g.flex->viewport()->installEventFilter(this);
    g.flex->setMouseIcon(QCursor(Qt::PointingHandCursor));
}

CellEditor* EditingSession::editorFor(VemoGridColType type) const
{
    if (type < 0 || std::size_t(type) >= m_editors.size())
        return nullptr;
    return m_editors[std::size_t(type)];
}

bool EditingSession::hasFocusWithin(const CellEditor* editor)
{
    // The window's own focus widget: it is kept while the window is inactive.
    for (const QWidget* w = editor->window()->focusWidget(); w; w = w->parentWidget()) {
        if (w == editor)
            return true;
    }
    return false;
}

// ---- showing -------------------------------------------------------------------------------

void EditingSession::load(CellEditor* editor, int row, int col)
{
    const QScopedValueRollback<bool> loading(m_loading, true);
    FlexGrid* const flex = g.flex;
    VemoGridLib::Column* const column = g.column(col);
    editor->setEventReceiver(this);
    editor->setColumn(column);
    editor->setAppearance(g.cellAppearance);
    editor->setBorderStyle(g.cellBorderStyle);
    editor->setFont(flex->font());
    if (g.assignCellColorSel) {
        editor->setBackColor(g.cellBackColorSel);
        editor->setForeColor(g.cellForeColorSel);
    } else {
        // The cell's colours as drawn: unset ones are the grid's, and a system text colour
        // then stays readable on the cell's own background, as in the grid.
        const OleColor back = flex->CellBackColor();
        const OleColor fore = flex->CellForeColor();
        editor->setBackColor(back ? back : flex->BackColor());
        editor->setForeColor(fore ? fore : flex->ForeColor());
    }
    editor->setMaxLength(column->MaxLength());
    editor->setAlignment(editorAlignment(flex->ColAlignment(col)));
    editor->setText(flex->TextMatrix(row, col));
}

void EditingSession::place()
{
    FlexGrid* const flex = g.flex;
    const QScopedValueRollback<bool> placing(m_placing, true);
    // Reading the cell's place scrolls it into view first; that scroll must not commit.
    const int left = flex->CellLeft();
    const int top = flex->CellTop();
    const int width = std::max(0, flex->CellWidth());
    const int height = std::max(0, flex->CellHeight());
    m_active->setGeometry(twipsToPixelsX(left, g.q), twipsToPixelsY(top, g.q),
                          twipsToPixelsX(width, g.q), twipsToPixelsY(height, g.q));
}

void EditingSession::showEditor()
{
    FlexGrid* const flex = g.flex;
    const int row = flex->Row();
    const int col = flex->Col();
    if (g.suppressEvents || !g.editEnable || !g.userMode || row < flex->FixedRows() ||
        col < flex->FixedCols() || row >= flex->Rows() || col >= flex->Cols())
        return;
    // An editor still open on another cell (the grid's own work moved the current cell) ends
    // there first.
    if (m_active && (m_row != row || m_col != col))
        commit();
    if (!m_active) {
        const VemoGridLib::Column* const column = g.columnOrNull(col);
        CellEditor* const editor = column ? editorFor(column->colType()) : nullptr;
        if (!editor)
            return;
        m_active = editor;
        m_row = row;
        m_col = col;
        load(editor, row, col);
    }
    place();
    CellEditor* const editor = m_active;
    selectWholeText(*editor);
    editor->raise();
    editor->show();
    editor->setLunarCalendar(g.lunarCalendar);
    editor->setFocus(Qt::OtherFocusReason);
    // A new session on this cell: its next leave is a leave of its own.
    g.leaveAlreadyDone = false;
}

void EditingSession::redisplay()
{
    if (g.q->isVisible() && (g.flex->hasFocus() || (m_active && hasFocusWithin(m_active))))
        showEditor();
}

void EditingSession::clickDataCell()
{
    if (m_active)
        g.leaveCellContained();
    const int row = g.flex->Row();
    const int col = g.flex->Col();
    if (isLink(row, col)) {
        shellOpen(g.flex->TextMatrix(row, col));
        return;
    }
    showEditor();
}

bool EditingSession::isLink(int row, int col) const
{
    return g.typeOf(col) == ehyperlink && !vb::TrimmedView(g.cells.text(row, col)).isEmpty();
}

void EditingSession::followCell()
{
    if (!m_active || m_placing)
        return;
    const QRect cell = g.cells.cellRect(m_row, m_col);
    if (!cell.isEmpty() && g.cells.scrolledArea().contains(cell)) {
        m_active->setGeometry(cell);
        return;
    }
    // The cell left the view while the hosted grid was changing: commit once it is done.
    QTimer::singleShot(0, this,
                       [this] { catchingErrors("VemoGrid commit", [this] { commit(); }); });
}

void EditingSession::cellWritten(int row, int col)
{
    if (!m_active || row != m_row || col != m_col)
        return;
    const QScopedValueRollback<bool> loading(m_loading, true);
    m_active->setText(g.flex->TextMatrix(row, col));
    selectWholeText(*m_active);
}

void EditingSession::updateLinkPointer()
{
    FlexGrid* const flex = g.flex;
    const int row = flex->MouseRow();
    const int col = flex->MouseCol();
    const bool dataCell = row >= flex->FixedRows() && row < flex->Rows() &&
                          col >= flex->FixedCols() && col < flex->Cols();
    const bool link = dataCell && g.typeOf(col) == ehyperlink && !g.cells.text(row, col).isEmpty();
    const int pointer = link ? Flex::flexCustom : Flex::flexDefault;
    if (flex->MousePointer() != pointer && (dataCell || flex->MousePointer() == Flex::flexCustom))
        flex->setMousePointer(pointer);
}

// ---- committing and hiding -----------------------------------------------------------------

void EditingSession::commit()
{
    if (g.suppressEvents || !m_active || m_committing)
        return;
    // The handlers of the events below may move the focus (a message box): that is no second
    // leave of this cell.
    const QScopedValueRollback<bool> committing(m_committing, true);
    CellEditor* const editor = m_active;
    FlexGrid* const flex = g.flex;
    // The edited cell, even when the grid's own work moved the current cell meanwhile.
    const int row = m_row;
    const int col = m_col;
    if (row >= flex->Rows() || col >= flex->Cols()) {
        hideEditor();
        return;
    }
    const QString typed = editor->Text();
    if (typed == flex->TextMatrix(row, col)) {
        hideEditor();
        return;
    }
    bool valid = false;
    // A text that cannot even be formatted (a whole number beyond 32 bits) is a rejected one.
    catchingErrors("VemoGrid Validate", [&] { valid = editor->Validate(); });
    if (!valid) {
        Q_EMIT g.q->ValidateError(row, col, typed);
        hideEditor();
        return;
    }
    bool cancel = false;
    QString newValue = typed;
    Q_EMIT g.q->BeforeChange(row, col, cancel, newValue);
    // The handler may have removed rows or columns; then the cell is gone with its edit.
    if (cancel || row >= flex->Rows() || col >= flex->Cols() || m_active != editor) {
        hideEditor();
        return;
    }
    // The editor's text, as Validate left it, is what the cell gets: a rewritten newValue is not.
    flex->setTextMatrix(row, col, editor->Text());
    if (g.typeOf(col) == eCheckBox)
        g.drawCheckBoxes(col, row);
    Q_EMIT g.q->CellChanged(row, col);
    hideEditor();
}

void EditingSession::hideEditor()
{
    CellEditor* const editor = std::exchange(m_active, nullptr);
    if (!editor)
        return;
    // Hiding a focused widget would hand the focus to the next one on the form.
    if (hasFocusWithin(editor))
        g.flex->setFocus(Qt::OtherFocusReason);
    editor->hide();
    editor->setColumn(nullptr);
    editor->setEventReceiver(nullptr);
}

void EditingSession::editorLostFocus(CellEditor* editor)
{
    if (editor != m_active || m_committing)
        return;
    catchingErrors("VemoGrid editor focus", [this] {
        g.leaveCellContained();
        // The hosted grid's LeaveCell that may follow (a click elsewhere) is this one.
        g.leaveAlreadyDone = true;
    });
}

// ---- the editor's reports ------------------------------------------------------------------

void EditingSession::Change()
{
    if (!m_loading)
        Q_EMIT g.q->Change();
}

void EditingSession::BeforeDropDown()
{
    Q_EMIT g.q->BeforeDropDown();
}

void EditingSession::CellComboSelect(int Index, const QString& Value)
{
    Q_EMIT g.q->CellComboSelect(Index, Value);
}

void EditingSession::CellComboClick(const QString& Value)
{
    int col = g.flex->Col();
    QString value = Value;
    Q_EMIT g.q->CellComboClick(g.flex->Row(), col, value);
}

void EditingSession::Click()
{
    Q_EMIT g.q->Click();
}

void EditingSession::DblClick()
{
    Q_EMIT g.q->DblClick();
}

void EditingSession::KeyDown(short& KeyCode, short& Shift)
{
    handleKey(KeyCode, Shift, m_active);
    Q_EMIT g.q->KeyDown(KeyCode, Shift);
}

void EditingSession::KeyPress(short& KeyAscii)
{
    Q_EMIT g.q->KeyPress(KeyAscii);
}

void EditingSession::KeyUp(short& KeyCode, short& Shift)
{
    Q_EMIT g.q->KeyUp(KeyCode, Shift);
}

void EditingSession::relayMouse(void (VemoGrid::*signal)(short&, short&, float&, float&),
                                short& button, short& shift, float& x, float& y)
{
    VemoGrid* const grid = g.q;
    if (m_active) {
        x += float(pixelsToTwipsX(m_active->x(), grid));
        y += float(pixelsToTwipsY(m_active->y(), grid));
    }
    Q_EMIT(grid->*signal)(button, shift, x, y);
}

void EditingSession::MouseDown(short& Button, short& Shift, float& x, float& y)
{
    relayMouse(&VemoGrid::MouseDown, Button, Shift, x, y);
}

void EditingSession::MouseMove(short& Button, short& Shift, float& x, float& y)
{
    relayMouse(&VemoGrid::MouseMove, Button, Shift, x, y);
}

void EditingSession::MouseUp(short& Button, short& Shift, float& x, float& y)
{
    relayMouse(&VemoGrid::MouseUp, Button, Shift, x, y);
}

void EditingSession::ButtonClick()
{
    int row = g.flex->Row();
    int col = g.flex->Col();
    Q_EMIT g.q->BtnClick(row, col);
}

void EditingSession::ExitLocus()
{
    // The grid ends the edit on the editor's focus loss (editorLostFocus), not here.
}

} // namespace VemoGridLib
