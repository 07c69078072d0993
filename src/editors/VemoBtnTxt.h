// SPDX-License-Identifier: MIT
// The editor of button cells: a text field with an ellipsis button at its right end.
#pragma once

#include <VemoGridLib/CellEditor.h>

namespace VemoGridLib {

/// The editor of `eButton` cells, created by the grid (`VemoBtnTxt1`): the text field
/// `txtInput` at the left and, in the strip right of it, a push button with an ellipsis that
/// the editor paints itself. A press of the button is reported as `ButtonClick`; what it means
/// is the host's. The field's input is reported as by every editor and never filtered; each
/// change of its text is reported as `Change`, except while `Value` is being assigned.
///
/// The strip takes no focus, so pressing the button leaves the focus in `txtInput` and is no
/// `ExitLocus`.
class VEMOGRIDLIB_EXPORT VemoBtnTxt : public CellEditor
{
    Q_OBJECT
    Q_PROPERTY(int PubAttrib_MaxLength READ PubAttrib_MaxLength WRITE setPubAttrib_MaxLength)

public:
    explicit VemoBtnTxt(QWidget* parent = nullptr);
    ~VemoBtnTxt() override;

    /// Always true: any text is acceptable.
    bool Validate() override;
    /// The text.
    QVariant Value() const override;
    /// Writes the value as text, without reporting `Change`.
    void setValue(const QVariant& value) override;

    /// `MaxLength`, under the name hosts use for the button-text editor.
    int PubAttrib_MaxLength() const;
    void setPubAttrib_MaxLength(int length);

    /// Whether the button is drawn pressed.
    bool buttonPressed() const;

protected:
    void fieldTextChanged() override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    /// Places `txtInput` at the left, leaving the button strip free.
    void placeField();
    /// The button face: the strip right of `txtInput`, inside the border.
    QRect buttonRect() const;
    void setPressed(bool pressed);

    bool m_pressed = false;
    bool m_armed = true;
};

} // namespace VemoGridLib
