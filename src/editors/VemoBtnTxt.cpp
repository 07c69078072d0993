// SPDX-License-Identifier: MIT
// The button-text editor: its text field, the ellipsis button it paints, and the button press.
#include "editors/VemoBtnTxt.h"

#include "common/Twips.h"
#include "common/VemoEnums.h"
#include "editors/ICellEventReceiver.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace VemoGridLib {

namespace {

/// Width of the button strip in twips, without and with a border.
constexpr int StripTwips = 250;
constexpr int BorderedStripTwips = 300;

/// A handler of `ButtonClick` that ran longer than this (it showed a dialog, say) has had its
/// press: the button comes up at once instead of waiting for a mouse-up the user gave elsewhere.
constexpr qint64 LongPressHandlerMs = 200;

} // namespace

VemoBtnTxt::VemoBtnTxt(QWidget* parent)
    : CellEditor(parent)
{
    auto* const field = new QLineEdit(this);
    field->setObjectName(QStringLiteral("txtInput"));
    setTextField(field);
    // The strip takes no focus: pressing the button leaves it in txtInput (the focus proxy), so
    // a press is no focus loss of the editor.
    setFocusPolicy(Qt::NoFocus);
    placeField();
}

VemoBtnTxt::~VemoBtnTxt() = default;

bool VemoBtnTxt::Validate()
{
    return true;
}

QVariant VemoBtnTxt::Value() const
{
    return Text();
}

void VemoBtnTxt::setValue(const QVariant& value)
{
    m_armed = false;
    setText(value.toString());
    m_armed = true;
}

int VemoBtnTxt::PubAttrib_MaxLength() const
{
    return MaxLength();
}

void VemoBtnTxt::setPubAttrib_MaxLength(int length)
{
    setMaxLength(length);
}

bool VemoBtnTxt::buttonPressed() const
{
    return m_pressed;
}

void VemoBtnTxt::fieldTextChanged()
{
    if (m_armed)
        report("VemoBtnTxt Change", [](ICellEventReceiver& host) { host.Change(); });
}

void VemoBtnTxt::placeField()
{
    const int strip = BorderStyle() == FixedSingle ? BorderedStripTwips : StripTwips;
    const int fieldWidth = twipsToPixelsX(pixelsToTwipsX(width(), this) - strip, this);
    textField()->setGeometry(0, 0, qMax(0, fieldWidth), height());
}

QRect VemoBtnTxt::buttonRect() const
{
    QRect face = rect();
    if (BorderStyle() == FixedSingle) {
        const int border = Appearance() == flat ? 2 : 3;
        face.adjust(0, 0, -border, -border);
    }
    face.setLeft(textField()->width());
    return face;
}

void VemoBtnTxt::resizeEvent(QResizeEvent* event)
{
    CellEditor::resizeEvent(event);
    placeField();
}

void VemoBtnTxt::paintEvent(QPaintEvent*)
{
    // The border style may have changed since the last resize; it sets the strip's width.
    placeField();
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    QStyleOptionButton option;
    option.initFrom(this);
    option.rect = buttonRect();
    option.state |= m_pressed ? QStyle::State_Sunken : QStyle::State_Raised;
    if (Appearance() == flat)
        option.features |= QStyleOptionButton::Flat;
    style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
    QRect caption = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    // The pressed face carries its caption down and to the right with it.
    if (m_pressed)
        caption.adjust(0, 0, 1, 2);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(caption, Qt::AlignCenter | Qt::TextSingleLine, QStringLiteral("\u2026"));
}

void VemoBtnTxt::setPressed(bool pressed)
{
    m_pressed = pressed;
    repaint();
}

void VemoBtnTxt::mousePressEvent(QMouseEvent*)
{
    QElapsedTimer handler;
    handler.start();
    setPressed(true);
    report("VemoBtnTxt ButtonClick", [](ICellEventReceiver& host) { host.ButtonClick(); });
    if (handler.elapsed() > LongPressHandlerMs)
        setPressed(false);
}

void VemoBtnTxt::mouseReleaseEvent(QMouseEvent*)
{
    setPressed(false);
}

void VemoBtnTxt::mouseDoubleClickEvent(QMouseEvent*)
{
    // The second click of a double click is no second press: one ButtonClick, one dialog.
}

} // namespace VemoGridLib
