// SPDX-License-Identifier: MIT
// The inside of VemoComboBox: its drop-down list window, the list's search and its own receiver.
#pragma once

#include "editors/Column.h"
#include "editors/DropDownWindow_p.h"
#include "editors/ICellEventReceiver.h"
#include "editors/VemoComboBox.h"

#include <QObject>
#include <QPixmap>
#include <QStringList>

#include <memory>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace VemoGridLib {

class FlexGrid;

/// The receiver of a standalone combo: every report becomes the combo's own signal of the same
/// name; `ButtonClick` and `ExitLocus` are no events of the combo.
class ComboSelfReceiver final : public ICellEventReceiver
{
public:
    explicit ComboSelfReceiver(VemoComboBox* combo)
        : q(combo)
    {}
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

private:
    VemoComboBox* q;
};

class VemoComboBoxPrivate
{
public:
    explicit VemoComboBoxPrivate(VemoComboBox* combo);

    /// Creates the list window and its grid (VemoComboBoxList.cpp).
    void createList();
    /// Rebuilds the list's rows from the column: the header row, then one row per item (or per
    /// row of the column's model).
    void fill();
    /// Sizes the list window and puts it under the control.
    void place();
    /// The data index (row − 1) of the first row whose `SelectCol` cell starts with `text`
    /// under the column's `CompareMode`; −1 when none does.
    int search(const QString& text);
    /// Copies the cells of list column `col` into `keys`, folded for text compare when `folded`.
    void prepareKeys(int col, bool folded);
    /// Makes `row` the current row, selects it across all columns and, when `reveal`, makes it
    /// the top row unless it shows in full.
    void moveTo(int row, bool reveal);
    /// Shows `MousePointer` (with `MouseIcon` for 99) over the text field.
    void showPointer();
    /// Reports `CellComboSelect` for the current row.
    void reportSelect();
    /// Takes the current row into the text field, closes the list and reports `CellComboClick`.
    void commit();
    /// Whether `row` shows in full in the list.
    bool fullyVisible(int row) const;
    /// The current row moved by `step`: scroll one line towards it if it does not show.
    void stepRow(int step);

    VemoComboBox* q;
    DropDownWindow drop;
    QLineEdit* const field = drop.field();
    FlexGrid* grid = nullptr;
    std::unique_ptr<Column> ownColumn;
    ComboSelfReceiver self;
    bool armed = true;
    int mousePointer = 0;
    QPixmap mouseIcon;
    /// The cells of list column `keysCol`, one per data row, folded for text compare when
    /// `keysFolded`: prepared when the list is filled (again when `SelectCol` or `CompareMode`
    /// changed since), so that a keystroke is one pass over prepared strings.
    QStringList keys;
    int keysCol = -1;
    bool keysFolded = false;
};

} // namespace VemoGridLib
