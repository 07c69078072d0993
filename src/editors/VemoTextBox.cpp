// SPDX-License-Identifier: MIT
// The text and numeric cell editor: key filter, range check and number formatting.
#include "editors/VemoTextBox.h"

#include "editors/Column.h"
#include "editors/ICellEventReceiver.h"
#include "vb/VbConversion.h"
#include "vb/VbFormat.h"
#include "vb/VbStrings.h"

#include <QLineEdit>
#include <QResizeEvent>

#include <optional>

namespace VemoGridLib {

namespace {

/// A value as the host's text conversion writes it: numbers in the general form.
QString textOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return vb::CStr(value.toDouble());
    default:
        return value.toString();
    }
}

} // namespace

VemoTextBox::VemoTextBox(QWidget* parent)
    : CellEditor(parent)
    , m_input(new QLineEdit(this))
{
    m_input->setObjectName(QStringLiteral("txtInput"));
    setTextField(m_input);
}

VemoTextBox::~VemoTextBox() = default;

bool VemoTextBox::numericColumn() const
{
    const VemoGridLib::Column* const column = Column();
    if (!column)
        return false;
    const VemoGridColType type = column->colType();
    return type == eCurrency || type == eNumeric || type == eLong;
}

bool VemoTextBox::Validate()
{
    const QString text = vb::Trim(Text());
    setText(text);
    if (text.isEmpty() || !numericColumn())
        return true;
    if (!vb::IsNumeric(text))
        return false;
    // The raw text: a thousands separator ends the number here, while FormatData drops it.
    const double number = vb::Val(text);
    if (number < Column()->MinValue() || number > Column()->MaxValue())
        return false;
    FormatData();
    return true;
}

void VemoTextBox::FormatData()
{
    if (!numericColumn())
        return;
    const VemoGridLib::Column& column = *Column();
    double number = vb::Val(Text().remove(QLatin1Char(',')));
    const qint16 decimals = column.DecimalLength();
    if (decimals == 0) {
        setText(QString::number(vb::CLng(number)));
        return;
    }
    number = vb::Round(number, decimals);
    if (!column.FormatString().isEmpty()) {
        setText(vb::Format(number, column.FormatString()));
        return;
    }
    QString text = vb::CStr(number);
    // Only a leading point is completed: "-.5" keeps its form.
    if (text.startsWith(QLatin1Char('.')))
        text.prepend(QLatin1Char('0'));
    setText(text);
}

QVariant VemoTextBox::Value() const
{
    const std::optional<double> number = vb::NumericValue(Text());
    return number ? QVariant(*number) : QVariant();
}

void VemoTextBox::setValue(const QVariant& value)
{
    m_armed = false;
    const QString text = textOf(value);
    if (text.isEmpty()) {
        setText(QString());
        if (Column() && Column()->ShowZero())
            FormatData();
    } else {
        setText(vb::CStr(vb::Val(text)));
        FormatData();
    }
    m_armed = true;
}

void VemoTextBox::keyDownSeen(short shift)
{
    m_modifierHeld = shift == 2 || shift == 4;
}

void VemoTextBox::filterKeyPress(short& keyAscii)
{
    if (m_modifierHeld || !numericColumn())
        return;
    const bool passes =
        (keyAscii >= '0' && keyAscii <= '9') || keyAscii == '-' || keyAscii == '.' || keyAscii == 8;
    if (!passes)
        keyAscii = 0;
}

void VemoTextBox::fieldTextChanged()
{
    if (m_armed)
        report("VemoTextBox Change", [](ICellEventReceiver& host) { host.Change(); });
}

void VemoTextBox::resizeEvent(QResizeEvent* event)
{
    CellEditor::resizeEvent(event);
    const QSize size = event->size();
    m_input->setGeometry(0, 0, qMax(0, size.width()), qMax(0, size.height()));
}

} // namespace VemoGridLib
