// SPDX-License-Identifier: MIT
// The common editor members, the pass-through to the text field and the reporting of input.
#include "editors/CellEditor.h"

#include "common/Twips.h"
#include "common/VbKeys.h"
#include "editors/Column.h"
#include "editors/ICellEventReceiver.h"
#include "common/VemoEnums.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyle>

namespace VemoGridLib {

namespace {

/// MaxLength 0 (no limit) is the field's own largest length.
constexpr int UnlimitedLength = 32767;

Qt::Alignment fieldAlignment(int alignment)
{
    switch (alignment) {
    case Center:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    case LeftJustify:
        return Qt::AlignLeft | Qt::AlignVCenter;
    default: // right, and general, which a text field shows right-aligned
        return Qt::AlignRight | Qt::AlignVCenter;
    }
}

int alignmentOf(Qt::Alignment alignment)
{
    if (alignment & Qt::AlignHCenter)
        return Center;
    return (alignment & Qt::AlignRight) ? RightJustify : LeftJustify;
}

} // namespace

ICellEventReceiver::~ICellEventReceiver() = default;

CellEditor::CellEditor(QWidget* parent)
    : QWidget(parent)
{
    connect(qApp, &QApplication::focusChanged, this, &CellEditor::focusMoved);
}

CellEditor::~CellEditor()
{
    // ~QWidget clears the focus of an editor that holds it, and the report of that focus change
    // must not reach this half-destroyed editor.
    disconnect(qApp, &QApplication::focusChanged, this, &CellEditor::focusMoved);
}

VemoGridLib::Column* CellEditor::Column() const
{
    return m_column;
}

void CellEditor::setColumn(VemoGridLib::Column* column)
{
    m_column = column;
    ++m_loads;
}

void CellEditor::setEventReceiver(ICellEventReceiver* receiver)
{
    m_receiver = receiver;
}

ICellEventReceiver* CellEditor::receiver() const
{
    return m_receiver;
}

quint64 CellEditor::loadCount() const
{
    return m_loads;
}

bool CellEditor::IsDropDown() const
{
    return false;
}

QString CellEditor::Text() const
{
    return m_field ? m_field->text() : QString();
}

void CellEditor::setText(const QString& text)
{
    if (m_field)
        m_field->setText(text);
}

bool CellEditor::Locked() const
{
    return m_field ? m_field->isReadOnly() : m_locked;
}

void CellEditor::setLocked(bool locked)
{
    m_locked = locked;
    if (m_field)
        m_field->setReadOnly(locked);
    changed("Locked");
}

int CellEditor::MaxLength() const
{
    if (!m_field)
        return 0;
    const int length = m_field->maxLength();
    return length >= UnlimitedLength ? 0 : length;
}

void CellEditor::setMaxLength(int length)
{
    if (m_field)
        m_field->setMaxLength(length <= 0 ? UnlimitedLength : length);
    changed("MaxLength");
}

int CellEditor::SelStart() const
{
    if (!m_field)
        return 0;
    return m_field->hasSelectedText() ? m_field->selectionStart() : m_field->cursorPosition();
}

void CellEditor::setSelStart(int start)
{
    if (m_field)
        m_field->setCursorPosition(start);
}

int CellEditor::SelLength() const
{
    return m_field ? m_field->selectionLength() : 0;
}

void CellEditor::setSelLength(int length)
{
    if (m_field)
        m_field->setSelection(SelStart(), length);
}

QString CellEditor::SelText() const
{
    return m_field ? m_field->selectedText() : QString();
}

void CellEditor::setSelText(const QString& text)
{
    if (m_field)
        m_field->insert(text);
}

int CellEditor::Alignment() const
{
    return m_field ? alignmentOf(m_field->alignment()) : m_alignment;
}

void CellEditor::setAlignment(int alignment)
{
    m_alignment = alignment;
    if (m_field)
        m_field->setAlignment(fieldAlignment(alignment));
    changed("Alignment");
}

int CellEditor::Appearance() const
{
    return m_appearance;
}

void CellEditor::setAppearance(int appearance)
{
    m_appearance = appearance;
    update();
    changed("Appearance");
}

int CellEditor::BorderStyle() const
{
    return m_borderStyle;
}

void CellEditor::setBorderStyle(int style)
{
    m_borderStyle = style;
    if (m_field)
        m_field->setFrame(style != BorderNone);
    update();
    changed("BorderStyle");
}

OleColor CellEditor::BackColor() const
{
    return m_backColor;
}

void CellEditor::setBackColor(OleColor color)
{
    m_backColor = color;
    paintSurface(QPalette::Base, QPalette::Window, color);
    // A system text colour may have to turn black or white to read on the new background.
    paintSurface(QPalette::Text, QPalette::WindowText, m_foreColor);
    (m_field ? static_cast<QWidget*>(m_field) : this)->setAutoFillBackground(true);
    changed("BackColor");
}

OleColor CellEditor::ForeColor() const
{
    return m_foreColor;
}

void CellEditor::setForeColor(OleColor color)
{
    m_foreColor = color;
    paintSurface(QPalette::Text, QPalette::WindowText, color);
    changed("ForeColor");
}

void CellEditor::paintSurface(QPalette::ColorRole fieldRole, QPalette::ColorRole ownRole,
                              OleColor color)
{
    // The text field carries the colours where there is one, the control's surface otherwise.
    QWidget* const surface = m_field ? static_cast<QWidget*>(m_field) : this;
    QPalette palette = surface->palette();
    const QColor painted = fieldRole == QPalette::Text
                               ? readableTextColor(color, m_backColor, palette)
                               : toQColor(color, palette);
    // The grid loads an editor on every cell: an unchanged palette is not set again.
    if (palette.color(fieldRole) == painted && palette.color(ownRole) == painted)
        return;
    palette.setColor(fieldRole, painted);
    palette.setColor(ownRole, painted);
    surface->setPalette(palette);
}

void CellEditor::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        changed("Enabled");
    else if (event->type() == QEvent::FontChange)
        changed("Font");
}

bool CellEditor::Enabled() const
{
    return isEnabled();
}

QFont CellEditor::Font() const
{
    return font();
}

void CellEditor::Refresh()
{
    update();
    if (m_field)
        m_field->update();
}

QSize CellEditor::sizeHint() const
{
    if (!m_field)
        return QWidget::sizeHint();
    const QSize field = m_field->sizeHint();
    return QSize(field.width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent), field.height());
}

bool CellEditor::hasTextField() const
{
    return m_field != nullptr;
}

void CellEditor::setLunarCalendar(bool)
{
}

void CellEditor::setTextField(QLineEdit* field)
{
    m_field = field;
    field->installEventFilter(this);
    setFocusProxy(field);
    // The field starts in the editor's own state (no border, unlocked, left-aligned).
    field->setFrame(m_borderStyle != BorderNone);
    field->setReadOnly(m_locked);
    field->setAlignment(fieldAlignment(m_alignment));
    connect(field, &QLineEdit::textChanged, this, [this] {
        catchingErrors("CellEditor text change", [this] { fieldTextChanged(); });
    });
}

QLineEdit* CellEditor::textField() const
{
    return m_field;
}

void CellEditor::keyDownSeen(short)
{
}

bool CellEditor::handleKeyDown(short, short)
{
    return false;
}

void CellEditor::filterKeyPress(short&)
{
}

void CellEditor::fieldTextChanged()
{
}

bool CellEditor::reportsExitLocus() const
{
    return true;
}

float CellEditor::twipsX(qreal pixels, const QWidget* widget)
{
    return float(pixels * twipsPerPixelX(widget));
}

float CellEditor::twipsY(qreal pixels, const QWidget* widget)
{
    return float(pixels * twipsPerPixelY(widget));
}

short CellEditor::reportMouse(const QMouseEvent* event, const QWidget* part)
{
    const bool move = event->type() == QEvent::MouseMove;
    short button = move ? vbButtonMask(event->buttons()) : vbButton(event->button());
    short shift = vbShiftMask(event->modifiers());
    float x = twipsX(event->position().x(), part);
    float y = twipsY(event->position().y(), part);
    report("CellEditor mouse event", [&](ICellEventReceiver& host) {
        if (move)
            host.MouseMove(button, shift, x, y);
        else if (event->type() == QEvent::MouseButtonRelease)
            host.MouseUp(button, shift, x, y);
        else
            host.MouseDown(button, shift, x, y);
    });
    return button;
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_field || !m_field)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
        return fieldKeyPress(static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod:
        return fieldInputMethod(static_cast<QInputMethodEvent*>(event));
    case QEvent::KeyRelease:
        fieldKeyRelease(static_cast<QKeyEvent*>(event));
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        fieldMouse(static_cast<QMouseEvent*>(event));
        return false;
    default:
        return false;
    }
}

bool CellEditor::fieldKeyPress(QKeyEvent* event)
{
    const quint64 loads = m_loads;
    short keyCode = vbKeyCode(event);
    short shift = vbShiftMask(event->modifiers());
    // Every key goes down, also one without a key code: a filter that depends on the
    // modifiers of the last key must not see those of an earlier one.
    keyDownSeen(shift);
    if (keyCode != 0) {
        report("CellEditor KeyDown", [&](ICellEventReceiver& host) { host.KeyDown(keyCode, shift); });
        // The host moved on to another cell or cancelled the key, or the editor took it: it is
        // not the field's.
        if (m_loads != loads || keyCode == 0 || handleKeyDown(keyCode, shift))
            return true;
    }
    short keyAscii = vbKeyAscii(event);
    if (keyAscii == 0)
        return false;
    const short typed = keyAscii;
    report("CellEditor KeyPress", [&](ICellEventReceiver& host) { host.KeyPress(keyAscii); });
    if (m_loads != loads)
        return true;
    filterKeyPress(keyAscii);
    if (keyAscii == 0)
        return true;
    // A negative KeyAscii is a character above U+7FFF, not a control character.
    if (keyAscii != typed && (keyAscii >= 32 || keyAscii < 0)) {
        // The receiver replaced the character: the field types the replacement instead.
        m_field->insert(QString(keyAsciiChar(keyAscii)));
        return true;
    }
    return false;
}

bool CellEditor::fieldInputMethod(QInputMethodEvent* event)
{
    const QString committed = event->commitString();
    if (committed.isEmpty() || m_replayingInput)
        return false;
    // Text an input method commits arrives without key presses: each character is reported and
    // filtered as a typed one would be, as typed without Ctrl or Alt.
    keyDownSeen(0);
    const quint64 loads = m_loads;
    QString kept;
    for (const QChar unit : committed) {
        short keyAscii = short(unit.unicode());
        report("CellEditor KeyPress", [&](ICellEventReceiver& host) { host.KeyPress(keyAscii); });
        if (m_loads != loads)
            return true;
        filterKeyPress(keyAscii);
        if (keyAscii != 0)
            kept += keyAsciiChar(keyAscii);
    }
    if (kept == committed)
        return false;
    QInputMethodEvent replaced(event->preeditString(), event->attributes());
    replaced.setCommitString(kept, event->replacementStart(), event->replacementLength());
    const QScopedValueRollback<bool> replaying(m_replayingInput, true);
    QCoreApplication::sendEvent(m_field, &replaced);
    return true;
}

void CellEditor::fieldKeyRelease(QKeyEvent* event)
{
    short keyCode = vbKeyCode(event);
    if (keyCode == 0 || event->isAutoRepeat())
        return;
    short shift = vbShiftMask(event->modifiers());
    report("CellEditor KeyUp", [&](ICellEventReceiver& host) { host.KeyUp(keyCode, shift); });
}

void CellEditor::fieldMouse(QMouseEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        m_fieldPressed = false;
        report("CellEditor DblClick", [](ICellEventReceiver& host) { host.DblClick(); });
        return;
    }
    if (event->type() == QEvent::MouseButtonPress && event->button() == Qt::LeftButton)
        m_fieldPressed = true;
    reportMouse(event, m_field);
    const bool clicked = event->type() == QEvent::MouseButtonRelease &&
                         event->button() == Qt::LeftButton && m_fieldPressed &&
                         m_field->rect().contains(event->position().toPoint());
    if (event->type() == QEvent::MouseButtonRelease)
        m_fieldPressed = false;
    if (clicked)
        report("CellEditor Click", [](ICellEventReceiver& host) { host.Click(); });
}

bool CellEditor::contains(const QWidget* widget) const
{
    // Walks across window boundaries too: a drop-down window of the editor is part of it.
    for (; widget; widget = widget->parentWidget()) {
        if (widget == this)
            return true;
    }
    return false;
}

void CellEditor::focusMoved(QWidget* from, QWidget* to)
{
    if (!from || !contains(from) || (to && contains(to)))
        return;
    // Leaving the application (no widget takes the focus while its window is inactive) is
    // not leaving the editor: the focus comes back to it. Nor is the editor's own drop-down
    // window becoming the active one, as a platform that activates every window it shows
    // makes it: the editor hands the activation back.
    const QWidget* const active = QApplication::activeWindow();
    if (!to && (!active || contains(active)))
        return;
    if (reportsExitLocus())
        report("CellEditor ExitLocus", [](ICellEventReceiver& host) { host.ExitLocus(); });
    Q_EMIT LostFocus();
}

} // namespace VemoGridLib
