// SPDX-License-Identifier: MIT
// VemoComboBox: the control, its keys, opening and closing the list, its own events and its
// saved settings.
#include "editors/VemoComboBox.h"

#include "common/ErrorGuard.h"
#include "common/PropertyBag.h"
#include "common/VbKeys.h"
#include "common/VemoError.h"
#include "editors/VemoArrow.h"
#include "editors/VemoComboBox_p.h"
#include "flexgrid/FlexGrid.h"
#include "flexgrid/FlexGridHosting_p.h"

#include <QApplication>
#include <QLineEdit>

#include <array>

namespace VemoGridLib {

namespace {

constexpr OleColor NewForeColor = 0x80000008u; // the system window-text colour
constexpr OleColor NewBackColor = 0xFFFFFFu;
constexpr int ShiftAlt = 4;

/// The pointer shapes of `MousePointer` 1 to 15.
constexpr std::array<Qt::CursorShape, 15> PointerShapes = {
    Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,   Qt::PointingHandCursor,
    Qt::SizeAllCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor,
    Qt::SizeHorCursor, Qt::UpArrowCursor,   Qt::WaitCursor,    Qt::ForbiddenCursor,
    Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor};

} // namespace

// ---- the standalone receiver ---------------------------------------------------------------

void ComboSelfReceiver::Change()
{
    Q_EMIT q->Change();
}
void ComboSelfReceiver::BeforeDropDown()
{
    Q_EMIT q->BeforeDropDown();
}
void ComboSelfReceiver::CellComboSelect(int Index, const QString& Value)
{
    Q_EMIT q->CellComboSelect(Index, Value);
}
void ComboSelfReceiver::CellComboClick(const QString& Value)
{
    Q_EMIT q->CellComboClick(Value);
}
void ComboSelfReceiver::Click()
{
    Q_EMIT q->Click();
}
void ComboSelfReceiver::DblClick()
{
    Q_EMIT q->DblClick();
}
void ComboSelfReceiver::KeyDown(short& KeyCode, short& Shift)
{
    Q_EMIT q->KeyDown(KeyCode, Shift);
}
void ComboSelfReceiver::KeyPress(short& KeyAscii)
{
    Q_EMIT q->KeyPress(KeyAscii);
}
void ComboSelfReceiver::KeyUp(short& KeyCode, short& Shift)
{
    Q_EMIT q->KeyUp(KeyCode, Shift);
}
void ComboSelfReceiver::MouseDown(short& Button, short& Shift, float& x, float& y)
{
    Q_EMIT q->MouseDown(Button, Shift, x, y);
}
void ComboSelfReceiver::MouseMove(short& Button, short& Shift, float& x, float& y)
{
    Q_EMIT q->MouseMove(Button, Shift, x, y);
}
void ComboSelfReceiver::MouseUp(short& Button, short& Shift, float& x, float& y)
{
    Q_EMIT q->MouseUp(Button, Shift, x, y);
}
void ComboSelfReceiver::ButtonClick() {}
void ComboSelfReceiver::ExitLocus() {}

VemoComboBoxPrivate::VemoComboBoxPrivate(VemoComboBox* combo)
    : q(combo)
    , drop(combo, [this] { q->CloseUp(); })
    , self(combo)
{}

void VemoComboBoxPrivate::showPointer()
{
    if (mousePointer == 0 || (mousePointer == 99 && mouseIcon.isNull()))
        field->unsetCursor();
    else if (mousePointer == 99)
        field->setCursor(QCursor(mouseIcon));
    else
        field->setCursor(PointerShapes[std::size_t(mousePointer - 1)]);
}

// ---- the control ----------------------------------------------------------------------------

VemoComboBox::VemoComboBox(QWidget* parent)
    : CellEditor(parent)
    , d(std::make_unique<VemoComboBoxPrivate>(this))
{
    setTextField(d->field);
    connect(d->drop.button(), &VemoArrow::Click, this, [this] {
        catchingErrors("VemoComboBox button", [this] { IsDropDown() ? CloseUp() : DropDown(); });
    });
    d->createList();
    connect(d->grid, &FlexGrid::MouseMove, this, [this] {
        catchingErrors("VemoComboBox hot tracking", [this] {
            const int row = d->grid->MouseRow();
            if (!listColumn()->HotTracking() || row == 0 || row == d->grid->Row())
                return;
            d->moveTo(row, false);
            d->reportSelect();
        });
    });
    connect(d->grid, &FlexGrid::Click, this, [this] {
        // A click on the header row picks no row.
        if (d->grid->MouseRow() > 0)
            catchingErrors("VemoComboBox list click", [this] { d->commit(); });
    });
    // A combo made in code is a standalone control at once.
    InitProperties();
}

VemoComboBox::~VemoComboBox() = default;

bool VemoComboBox::Validate()
{
    return true;
}

QVariant VemoComboBox::Value() const
{
    return Text();
}

void VemoComboBox::setValue(const QVariant& value)
{
    d->armed = false;
    setText(value.toString());
    d->armed = true;
}

bool VemoComboBox::IsDropDown() const
{
    return d->drop.isOpen();
}

Column* VemoComboBox::listColumn()
{
    if (VemoGridLib::Column* const hosts = Column())
        return hosts;
    if (!d->ownColumn)
        d->ownColumn = std::make_unique<VemoGridLib::Column>();
    return d->ownColumn.get();
}

void VemoComboBox::AddItem(const QString& Item)
{
    listColumn()->AddItem(Item);
}

qint32 VemoComboBox::ItemCount()
{
    return listColumn()->ItemCount();
}

QString VemoComboBox::Item(qint32 Index)
{
    return listColumn()->Item(Index);
}

QString VemoComboBox::ListHeader()
{
    return listColumn()->ListHeader();
}

void VemoComboBox::setListHeader(const QString& header)
{
    listColumn()->setListHeader(header);
}

QStringList VemoComboBox::Items()
{
    VemoGridLib::Column& column = *listColumn();
    QStringList items;
    for (qint32 index = 0; index < column.ItemCount(); ++index)
        items << column.Item(index);
    return items;
}

void VemoComboBox::setItems(const QStringList& items)
{
    VemoGridLib::Column& column = *listColumn();
    column.clearItems();
    for (const QString& item : items)
        column.AddItem(item);
}

qint32 VemoComboBox::Cols() const
{
    return d->grid->Cols();
}

qint32 VemoComboBox::Rows() const
{
    return d->grid->Rows();
}

QString VemoComboBox::RowText(qint32 Row) const
{
    if (Row < 0 || Row >= d->grid->Rows())
        return QString();
    const FlexGridHosting cells(d->grid);
    QString text;
    for (int col = 0; col < d->grid->Cols(); ++col) {
        text += cells.text(Row, col);
        text += u'\t';
    }
    text.chop(1); // only the last separator goes: an empty last cell keeps its tab
    return text;
}

FlexGrid* VemoComboBox::list() const
{
    return d->grid;
}

void VemoComboBox::DropDown()
{
    if (IsDropDown() || !isVisible())
        return;
    const quint64 loads = loadCount();
    report("VemoComboBox BeforeDropDown", [](ICellEventReceiver& host) { host.BeforeDropDown(); });
    // The receiver may have moved the editor on or hidden it meanwhile.
    if (loadCount() != loads || !isVisible())
        return;
    d->fill();
    d->place();
    d->drop.show();
}

void VemoComboBox::CloseUp()
{
    d->drop.hide();
}

bool VemoComboBox::handleKeyDown(short keyCode, short shift)
{
    bool swallowed = false;
    catchingErrors("VemoComboBox KeyDown", [&] {
        const bool alt = shift & ShiftAlt;
        if (keyCode == vbKeyF4 || (alt && keyCode == vbKeyDown && !IsDropDown())) {
            IsDropDown() ? CloseUp() : DropDown();
            swallowed = true;
            return;
        }
        if (!IsDropDown())
            return;
        FlexGrid& grid = *d->grid;
        switch (keyCode) {
        case vbKeyReturn:
            d->commit(); // the key itself goes on to the host's handling
            return;
        case vbKeyEscape:
            CloseUp();
            d->field->setFocus();
            swallowed = true;
            return;
        case vbKeyPageUp:
        case vbKeyPageDown:
            grid.scrollVertically(keyCode == vbKeyPageUp ? 2 : 3);
            if (!grid.RowIsVisible(grid.Row()))
                d->moveTo(grid.TopRow(), false);
            d->reportSelect();
            swallowed = true;
            return;
        case vbKeyUp:
            swallowed = true;
            if (alt) {
                CloseUp();
            } else if (grid.Row() > grid.FixedRows()) {
                d->stepRow(-1);
                d->reportSelect();
            }
            return;
        case vbKeyDown:
            swallowed = true;
            if (alt) {
                CloseUp();
                return;
            }
            d->stepRow(1);
            d->reportSelect();
            return;
        default:
            return;
        }
    });
    return swallowed;
}

void VemoComboBox::fieldTextChanged()
{
    if (!d->armed)
        return;
    const quint64 loads = loadCount();
    report("VemoComboBox Change", [](ICellEventReceiver& host) { host.Change(); });
    if (loadCount() != loads || !IsDropDown())
        return;
    const int found = d->search(Text());
    if (found < 0)
        return;
    d->moveTo(found + 1, true);
    d->reportSelect();
}

void VemoComboBox::resizeEvent(QResizeEvent* event)
{
    CellEditor::resizeEvent(event);
    d->drop.layOut();
}

void VemoComboBox::showEvent(QShowEvent* event)
{
    CellEditor::showEvent(event);
    if (listColumn()->AutoDropDown())
        DropDown();
}

void VemoComboBox::hideEvent(QHideEvent* event)
{
    CloseUp();
    CellEditor::hideEvent(event);
}

// ---- list settings kept in the column ----------------------------------------------------------

bool VemoComboBox::ShowHeader()
{
    return listColumn()->ShowHeader();
}
void VemoComboBox::setShowHeader(bool show)
{
    listColumn()->setShowHeader(show);
    changed("ShowHeader");
}
qint16 VemoComboBox::ListWidth()
{
    return listColumn()->ListWidth();
}
void VemoComboBox::setListWidth(qint16 twips)
{
    listColumn()->setListWidth(twips);
    changed("ListWidth");
}
qint16 VemoComboBox::VisibleRows()
{
    return listColumn()->VisibleRows();
}
void VemoComboBox::setVisibleRows(qint16 rows)
{
    listColumn()->setVisibleRows(rows);
    changed("VisibleRows");
}
qint16 VemoComboBox::SelectCol()
{
    return listColumn()->SelectCol();
}
void VemoComboBox::setSelectCol(qint16 col)
{
    listColumn()->setSelectCol(col);
    changed("SelectCol");
}
bool VemoComboBox::HotTracking()
{
    return listColumn()->HotTracking();
}
void VemoComboBox::setHotTracking(bool track)
{
    listColumn()->setHotTracking(track);
    changed("HotTracking");
}
QAbstractItemModel* VemoComboBox::DataSource()
{
    return listColumn()->DataSource();
}
void VemoComboBox::setDataSource(QAbstractItemModel* model)
{
    listColumn()->setDataSource(model);
}

int VemoComboBox::MousePointer() const
{
    return d->mousePointer;
}

void VemoComboBox::setMousePointer(int pointer)
{
    if ((pointer < 0 || pointer > int(PointerShapes.size())) && pointer != 99)
        throw VemoError(380, QStringLiteral("Invalid property value"));
    d->mousePointer = pointer;
    d->showPointer();
    changed("MousePointer");
}

QPixmap VemoComboBox::MouseIcon() const
{
    return d->mouseIcon;
}

void VemoComboBox::setMouseIcon(const QPixmap& icon)
{
    d->mouseIcon = icon;
    d->showPointer();
    changed("MouseIcon");
}

// ---- saved settings ---------------------------------------------------------------------------

void VemoComboBox::InitProperties()
{
    setAlignment(0);
    setBorderStyle(1);
    setForeColor(NewForeColor);
    setBackColor(NewBackColor);
    setAppearance(1);
    setEventReceiver(&d->self);
}

void VemoComboBox::ReadProperties(const PropertyBag& bag)
{
    const auto read = [&bag](const char* name, const QVariant& defaultValue, auto&& apply) {
        readSetting(bag, "VemoComboBox ReadProperties", name, defaultValue, apply);
    };
    const auto number = savedNumber;
    const QWidget* const container = parentWidget();
    read("Alignment", 0, [&](const QVariant& v) { setAlignment(int(number(v))); });
    read("BorderStyle", 1, [&](const QVariant& v) { setBorderStyle(int(number(v))); });
    read("Enabled", true, [&](const QVariant& v) { setEnabled(number(v) != 0); });
    read("Font", container ? container->font() : QApplication::font(), [&](const QVariant& v) {
        if (v.metaType().id() == QMetaType::QFont)
            setFont(qvariant_cast<QFont>(v));
    });
    read("ForeColor", NewForeColor, [&](const QVariant& v) { setForeColor(OleColor(number(v))); });
    read("BackColor", NewBackColor, [&](const QVariant& v) { setBackColor(OleColor(number(v))); });
    read("Text", QString(), [&](const QVariant& v) { setValue(v.toString()); });
    read("Appearance", 1, [&](const QVariant& v) { setAppearance(int(number(v))); });
    read("MaxLength", 0, [&](const QVariant& v) { setMaxLength(int(number(v))); });
    read("ShowHeader", true, [&](const QVariant& v) { setShowHeader(number(v) != 0); });
    read("ListWidth", qint16(-1), [&](const QVariant& v) { setListWidth(qint16(number(v))); });
    read("VisibleRows", qint16(12), [&](const QVariant& v) { setVisibleRows(qint16(number(v))); });
    read("Locked", false, [&](const QVariant& v) { setLocked(number(v) != 0); });
    read("SelectCol", qint16(0), [&](const QVariant& v) { setSelectCol(qint16(number(v))); });
    read("HotTracking", true, [&](const QVariant& v) { setHotTracking(number(v) != 0); });
    read("MouseIcon", QVariant(), [&](const QVariant& v) {
        if (v.metaType().id() == QMetaType::QPixmap)
            setMouseIcon(qvariant_cast<QPixmap>(v));
    });
    read("MousePointer", 0, [&](const QVariant& v) { setMousePointer(int(number(v))); });
    setEventReceiver(&d->self);
}

void VemoComboBox::WriteProperties(PropertyBag& bag) const
{
    auto* const self = const_cast<VemoComboBox*>(this); // the list settings create the column
    const auto write = [&bag](const char* name, const QVariant& value, const QVariant& saved) {
        writeSetting(bag, "VemoComboBox WriteProperties", name, value, saved);
    };
    write("Alignment", Alignment(), 0);
    write("BorderStyle", BorderStyle(), 1);
    write("Enabled", isEnabled(), true);
    write("Font", font(), QVariant());
    write("ForeColor", ForeColor(), NewForeColor);
    write("BackColor", BackColor(), NewBackColor);
    write("Text", Text(), QString());
    write("Appearance", Appearance(), 1);
    write("MaxLength", MaxLength(), 0);
    write("ShowHeader", self->ShowHeader(), true);
    write("ListWidth", self->ListWidth(), qint16(-1));
    write("VisibleRows", self->VisibleRows(), qint16(12));
    // "DataSource" is a model object of the running program: nothing to save or restore.
    write("Locked", Locked(), false);
    write("SelectCol", self->SelectCol(), qint16(0));
    write("HotTracking", self->HotTracking(), true);
    write("MouseIcon", d->mouseIcon.isNull() ? QVariant() : QVariant(d->mouseIcon), QVariant());
    write("MousePointer", d->mousePointer, 0);
}

} // namespace VemoGridLib
