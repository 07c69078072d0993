// SPDX-License-Identifier: MIT
// The member set every cell editor offers its host.
#pragma once

#include <VemoGridLib/ErrorGuard.h>
#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/VemoGridLibExport.h>

#include <QPalette>
#include <QPointer>
#include <QVariant>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
QT_END_NAMESPACE

namespace VemoGridLib {

class Column;
class ICellEventReceiver;

/// The base of every cell editor: the members a host uses to drive an editor without knowing
/// which one it holds, the receiver and `Column` references, and the reporting of input to the
/// receiver. An editor with an inner text field (`txtInput`) registers it with
/// `setTextField()`: the text, selection, locking, length, alignment, colour, border and font
/// members then pass straight through to it, and its keys, mouse input, clicks and changes are
/// reported to the receiver before the field handles them. Without a text field those members
/// are accepted and ignored (they read 0 or empty).
///
/// Positions and sizes of the reports are twips; colours are OLE colours. A failure of the
/// receiver is reported with qWarning and leaves the editor as it was.
class VEMOGRIDLIB_EXPORT CellEditor : public QWidget
{
    Q_OBJECT

public:
    ~CellEditor() override;

    /// The column being edited, read afresh whenever the editor needs a setting; stored, not
    /// copied. Assigning it (also none) marks the start of a new load by the host.
    VemoGridLib::Column* Column() const;
    void setColumn(VemoGridLib::Column* column);
    /// The host that receives the editor's reports; none silences them.
    void setEventReceiver(ICellEventReceiver* receiver);

    /// Checks, and may reformat, the content before the host stores it; true = acceptable.
    virtual bool Validate() = 0;
    /// True while the editor's own drop-down is open.
    virtual bool IsDropDown() const;

    /// The content as displayed.
    virtual QString Text() const;
    virtual void setText(const QString& text);
    /// The content as a typed value; a null QVariant stands for Null.
    virtual QVariant Value() const = 0;
    virtual void setValue(const QVariant& value) = 0;

    /// The user may look but not change.
    virtual bool Locked() const;
    virtual void setLocked(bool locked);
    /// Longest text the user may enter; 0 = no limit.
    int MaxLength() const;
    void setMaxLength(int length);
    /// The selection in the text field.
    int SelStart() const;
    void setSelStart(int start);
    int SelLength() const;
    void setSelLength(int length);
    QString SelText() const;
    void setSelText(const QString& text);

    /// `Left Justify` 0, `Right Justify` 1, `Center` 2, `General` 3. With a text field the
    /// value reads back as the field shows it.
    virtual int Alignment() const;
    virtual void setAlignment(int alignment);
    /// `flat` 0 or `3D` 1: how the border is drawn.
    int Appearance() const;
    void setAppearance(int appearance);
    /// `None` 0 or `Fixed Single` 1.
    int BorderStyle() const;
    void setBorderStyle(int style);
    /// Background and text colours of the editor (of its text field when it has one).
    OleColor BackColor() const;
    void setBackColor(OleColor color);
    OleColor ForeColor() const;
    void setForeColor(OleColor color);
    /// The control and its parts alike (QWidget::setEnabled sets it).
    bool Enabled() const;
    /// The font of the text field (QWidget::setFont sets it; the field inherits it).
    QFont Font() const;
    /// Repaints the editor.
    void Refresh();
    /// A text field's size, with room for a drop button, for an editor placed in a layout.
    QSize sizeHint() const override;
    /// True for an editor with an inner text field, in which Left and Right move the caret.
    bool hasTextField() const;
    /// Date editors show lunar dates; the other editors ignore it.
    virtual void setLunarCalendar(bool lunar);

Q_SIGNALS:
    /// A setter changed the setting saved as `name` ("Locked", "MaxLength", "Alignment",
    /// "Appearance", "BorderStyle", "BackColor", "ForeColor", "Enabled", "Font", and each
    /// editor's own), so that a container marks the form modified.
    void PropertyChanged(const QString& name);
    /// The focus went from this editor (or one of its parts or windows) to a widget outside it.
    /// A host that ends the edit on focus loss listens to this.
    void LostFocus();

protected:
    explicit CellEditor(QWidget* parent = nullptr);

    /// The receiver, or none.
    ICellEventReceiver* receiver() const;
    /// Reports a changed setting under its saved name.
    void changed(const char* name) { Q_EMIT PropertyChanged(QString::fromLatin1(name)); }
    /// Enabled and Font are QWidget's own: their changes are reported from here.
    void changeEvent(QEvent* event) override;
    /// Calls `report` with the receiver when there is one; a failure of the receiver is
    /// reported under `where` and goes no further. True when the report ran through or
    /// there was no receiver.
    template <typename Report>
    bool report(const char* where, Report&& report) const;
    /// A counter that moves on every `setColumn`: a handler that reported an input compares
    /// it before and after, and stops when the host re-targeted the editor meanwhile (moved to
    /// another cell), since the input then belongs to the old cell.
    quint64 loadCount() const;

    /// Registers the inner text field (`txtInput`): the pass-through members, focus and input
    /// reporting then go through it. Call once, from the constructor.
    void setTextField(QLineEdit* field);
    QLineEdit* textField() const;

    /// Hooks for editors with a text field, in the order the field's input reaches them.
    /// A key went down with `shift`, before it is reported.
    virtual void keyDownSeen(short shift);
    /// The editor's own reaction to a key that went down, after the receiver saw it as
    /// `KeyDown` and left `keyCode` non-zero (a drop-down list moves its row, say). True
    /// swallows the key: the text field does not get it and no `KeyPress` follows.
    virtual bool handleKeyDown(short keyCode, short shift);
    /// The character `keyAscii`, as the receiver left it, is about to be typed: set it to 0 to
    /// swallow it.
    virtual void filterKeyPress(short& keyAscii);
    /// The field's text changed, by the user or by program.
    virtual void fieldTextChanged();
    /// Whether focus loss is reported as `ExitLocus` (default true).
    virtual bool reportsExitLocus() const;

    /// Twips of a point given in pixels of `widget` (the report coordinates).
    static float twipsX(qreal pixels, const QWidget* widget);
    static float twipsY(qreal pixels, const QWidget* widget);
    /// Reports a mouse event of `part` (this editor or a part of it) as MouseDown, MouseMove
    /// or MouseUp, in twips relative to `part`; the button may have been changed by the
    /// receiver and is returned.
    short reportMouse(const QMouseEvent* event, const QWidget* part);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool fieldKeyPress(QKeyEvent* event);
    bool fieldInputMethod(QInputMethodEvent* event);
    void fieldKeyRelease(QKeyEvent* event);
    void fieldMouse(QMouseEvent* event);
    void focusMoved(QWidget* from, QWidget* to);
    bool contains(const QWidget* widget) const;
    /// Sets both palette roles of the editor's surface to `color`; a text colour as
    /// readableTextColor() gives it on BackColor.
    void paintSurface(QPalette::ColorRole fieldRole, QPalette::ColorRole ownRole, OleColor color);

    QPointer<VemoGridLib::Column> m_column;
    ICellEventReceiver* m_receiver = nullptr;
    quint64 m_loads = 0;
    QLineEdit* m_field = nullptr;
    bool m_fieldPressed = false;
    bool m_replayingInput = false;
    int m_alignment = 0;
    int m_appearance = 1;
    int m_borderStyle = 0;
    OleColor m_backColor = 0x80000005u;
    OleColor m_foreColor = 0x80000008u;
    bool m_locked = false;
};

template <typename Report>
bool CellEditor::report(const char* where, Report&& report) const
{
    return !m_receiver || catchingErrors(where, [&] { report(*m_receiver); });
}

} // namespace VemoGridLib
