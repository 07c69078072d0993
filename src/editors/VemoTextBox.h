// SPDX-License-Identifier: MIT
// The text and numeric cell editor of VemoGrid.
#pragma once

#include <VemoGridLib/CellEditor.h>

namespace VemoGridLib {

/// The editor of text cells and of the numeric column types (`eCurrency`, `eNumeric`,
/// `eLong`): one single-line text field, `txtInput`, covering the whole control. VemoGrid
/// creates it as its child `VemoTextBox1`; a host may find it by that name.
///
/// In a numeric column only digits, '-', '.' and Backspace can be typed (Ctrl or Alt
/// combinations are exempt, so Ctrl+V pastes); `Validate` then checks the number against the
/// column's range and writes it in the column's form. `Change` reaches the receiver only after
/// the host has assigned `Value` once, and never for that assignment itself.
class VEMOGRIDLIB_EXPORT VemoTextBox : public CellEditor
{
    Q_OBJECT

public:
    explicit VemoTextBox(QWidget* parent = nullptr);
    ~VemoTextBox() override;

    /// Trims the blanks around the text (written back); an empty text and a text column are
    /// accepted as they are. In a numeric column the text must be a number, its leading digits
    /// (the raw text, read up to the first comma) must lie within the column's MinValue and
    /// MaxValue, both inclusive, and the text is then formatted by `FormatData`. Throws what
    /// `FormatData` throws.
    bool Validate() override;
    /// Writes the number of a numeric column's text in the column's form: commas dropped,
    /// then a whole number for DecimalLength 0, else rounded to DecimalLength places (halves to
    /// even) and formatted by the column's FormatString, or in the general form without one.
    /// An empty text becomes 0. Does nothing without a column or in a non-numeric column.
    /// Throws VemoError 6 (Overflow) for a whole number outside the 32-bit range, 5 for a
    /// negative DecimalLength.
    void FormatData();

    /// The number the text holds, or a null QVariant when the text is not numeric.
    QVariant Value() const override;
    /// Shows the number read from the start of `value`'s text (abc gives 0, 12abc gives 12),
    /// in the column's form; an empty value empties the field, or shows 0 in the column's form
    /// when the column has ShowZero. Reports no `Change`. Set `Column` first.
    void setValue(const QVariant& value) override;

protected:
    void keyDownSeen(short shift) override;
    void filterKeyPress(short& keyAscii) override;
    void fieldTextChanged() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool numericColumn() const;

    QLineEdit* m_input = nullptr;
    // False while the host assigns Value, so that the assignment is not reported as a change;
    // also false until the first assignment.
    bool m_armed = false;
    // The last key went down with Ctrl alone or Alt alone: the numeric filter lets it through.
    bool m_modifierHeld = false;
};

} // namespace VemoGridLib
