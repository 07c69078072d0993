// SPDX-License-Identifier: MIT
// The editor of check box cells: a ticked or an empty box, toggled by Space or a left click.
#pragma once

#include <VemoGridLib/CellEditor.h>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace VemoGridLib {

/// The editor of `eCheckBox` cells, created by the grid (`VemoCheckBox1`). It has no text field:
/// it shows one of two equal pictures, `imgChecked` or `imgUnchecked`, centred in its area. Space
/// or a left click toggles the state unless the editor is `Locked`, after `KeyDown` or
/// `MouseDown` went to the receiver (which may cancel the toggle by changing the key or the
/// button), and every toggle is reported as `Change`. It reports no `Click`, `DblClick` or
/// `ExitLocus`: the host ends a check box edit by its own means (`LostFocus` still tells it).
///
/// The cell text of the state is "." when checked and "`" (a grave accent) when unchecked.
class VEMOGRIDLIB_EXPORT VemoCheckBox : public CellEditor
{
    Q_OBJECT

public:
    explicit VemoCheckBox(QWidget* parent = nullptr);
    ~VemoCheckBox() override;

    /// Always true: both states are acceptable.
    bool Validate() override;
    /// Always true, as `Validate`.
    bool checkData();

    /// "." when checked, "`" when not.
    QString Text() const override;
    /// Checked exactly when `text` is "."; any other text, the empty one too, unchecks.
    void setText(const QString& text) override;
    /// The state as a bool.
    QVariant Value() const override;
    /// The state from `value` taken as a Boolean: a number is true when non-zero, a text is
    /// read as VB's CBool reads it ("True", "False", a number). Throws VemoError 13 (type
    /// mismatch) for a text or a type that is no Boolean; Null and Empty uncheck.
    void setValue(const QVariant& value) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool reportsExitLocus() const override;

private:
    /// Reports a mouse event of `part` (the surface or a picture); a press with the left
    /// button alone, as the receiver left it, toggles.
    void mouseInput(QMouseEvent* event, QWidget* part);
    void toggle();
    /// Shows the picture of the state and hides the other.
    void drawState();
    /// Paints both pictures for the screen's pixel ratio and centres them.
    void paintPictures();
    void centrePictures();

    QLabel* m_imgChecked;
    QLabel* m_imgUnchecked;
    bool m_checked = false;
    qreal m_picturesRatio = 0;
};

} // namespace VemoGridLib
