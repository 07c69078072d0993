// SPDX-License-Identifier: MIT
// VemoGrid's model over its hosted grid, the Column array, the colouring and
// check-box passes, the layout, the event relays; the grid side of Column and ColType.
#include "grid/VemoGrid_p.h"

#include "grid/VemoGridPictures_p.h"

#include "common/Twips.h"
#include "vb/VbStrings.h"
#include "common/VemoError.h"

#include <QEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>
#include <functional>

namespace VemoGridLib {

namespace {

constexpr int LayoutMarginTwips = 60;
constexpr int CheckBoxColumnWidth = 500;
constexpr int CalendarColumnWidth = 1250;
constexpr int CheckBoxPictureAlignment = Flex::flexAlignCenterCenter;
constexpr int MarkerPictureAlignment = Flex::flexAlignLeftCenter;
const QString UncheckedMarker = QStringLiteral("`");

/// The check-box pass: the checked picture unless the trimmed text is empty, "False" or
/// the program's own unchecked marker.
bool showsChecked(QStringView text)
{
    const QStringView trimmed = vb::TrimmedView(text);
    return !trimmed.isEmpty() && trimmed != QLatin1String("False") && trimmed != UncheckedMarker;
}

} // namespace

VemoGridPrivate::VemoGridPrivate(VemoGrid* grid)
    : q(grid)
    , flex(new FlexGrid(grid))
    , cells(flex)
    , imgChecked(GridPictures::checked())
    , imgUnchecked(GridPictures::unchecked())
    , imgUP(GridPictures::up())
    , imgDown(GridPictures::down())
    , imgMarker(GridPictures::rowMarker())
{
    flex->setObjectName(QStringLiteral("MSHFlexGrid1"));
    cells.setNumberColumns([this](int col) {
        const VemoGridColType type = typeOf(col);
        return type == eNumeric || type == eCurrency || type == eLong;
    });
    cells.setPictureAtRatio(
        [this](const QPixmap& picture, qreal ratio) { return pictureAtRatio(picture, ratio); });
}

QPixmap VemoGridPrivate::pictureAtRatio(const QPixmap& picture, qreal ratio)
{
    const std::pair<const QPixmap*, QPixmap (*)(qreal)> drawn[] = {
        {&imgChecked, GridPictures::checked},
        {&imgUnchecked, GridPictures::unchecked},
        {&imgUP, GridPictures::up},
        {&imgDown, GridPictures::down},
        {&imgMarker, GridPictures::rowMarker}};
    const qint64 key = picture.cacheKey();
    for (const auto& [own, draw] : drawn) {
        if (own->cacheKey() != key)
            continue;
        QPixmap& made = picturesAtRatio[{key, ratio}];
        if (made.isNull())
            made = draw(ratio);
        return made;
    }
    return {};
}

BulkPass::BulkPass(VemoGridPrivate& grid, qint64 cells)
    : m_grid(grid)
    , m_outermost(grid.bulkDepth++ == 0)
    , m_redraw(grid.flex->Redraw())
    , m_hourglass(m_outermost && cells >= HourglassCells)
{
    if (!m_outermost)
        return;
    if (m_hourglass)
        m_grid.flex->setMousePointer(Flex::flexHourglass);
    m_grid.suppressEvents = true;
    m_grid.flex->setRedraw(false);
}

BulkPass::~BulkPass()
{
    --m_grid.bulkDepth;
    if (!m_outermost)
        return;
    m_grid.flex->setRedraw(m_redraw);
    if (m_hourglass)
        m_grid.flex->setMousePointer(Flex::flexDefault);
    m_grid.suppressEvents = false;
}

VemoGridLib::Column* VemoGridPrivate::column(int col) const
{
    if (col < 0 || std::size_t(col) >= columns.size())
        throw VemoError::subscriptOutOfRange();
    return columns[std::size_t(col)];
}

VemoGridLib::Column* VemoGridPrivate::columnOrNull(int col) const
{
    return col >= 0 && std::size_t(col) < columns.size() ? columns[std::size_t(col)] : nullptr;
}

VemoGridColType VemoGridPrivate::typeOf(int col) const
{
    const VemoGridLib::Column* const found = columnOrNull(col);
    return found ? found->colType() : eTextBox;
}

void VemoGridPrivate::resizeColumns(int cols)
{
    const std::size_t size = std::size_t(std::max(cols, 0));
    for (std::size_t c = size; c < columns.size(); ++c)
        delete columns[c];
    const std::size_t kept = std::min(size, columns.size());
    columns.resize(size);
    for (std::size_t c = kept; c < size; ++c)
        columns[c] = new VemoGridLib::Column(q);
}

void VemoGridPrivate::colourRows(int startRow)
{
    const int rows = flex->Rows();
    const int cols = flex->Cols();
    const int fixedRows = flex->FixedRows();
    const int first = std::max(startRow, fixedRows);
    if (first >= rows)
        return;
    const BulkPass pass(*this, qint64(rows - first) * cols);
    for (int c = flex->FixedCols(); c < cols; ++c) {
        // At design time, and for a column without its Column, every column is banded.
        const VemoGridLib::Column* const column = userMode ? columnOrNull(c) : nullptr;
        const bool numbered = column && column->AutoAdd();
        const bool readOnly = numbered || (column && column->Locked());
        const OleColor even = readOnly ? readOnlyColor : backColor1;
        const OleColor odd = readOnly ? readOnlyColor : backColor2;
        cells.setBandedColor(c, first, rows - 1, false, even, odd, fixedRows);
        // A check box's marker text stays hidden in its cell's new colour (it is drawn
        // in the background colour); the pass would otherwise uncover it.
        if (column && column->colType() == eCheckBox)
            cells.setBandedColor(c, first, rows - 1, true, even, odd, fixedRows);
        for (int r = first; numbered && r < rows; ++r) {
            if (cells.text(r, c).isEmpty())
                flex->setTextMatrix(r, c, QString::number(r));
        }
    }
}

void VemoGridPrivate::setColour(OleColor& field, OleColor color, const QString& name)
{
    field = color;
    colourRows(-1);
    changed(name);
}

void VemoGridPrivate::drawCheckBox(int row, int col)
{
    const QPixmap& picture = showsChecked(cells.text(row, col)) ? imgChecked : imgUnchecked;
    cells.setCheckBoxLook(row, col, picture, CheckBoxPictureAlignment);
}

void VemoGridPrivate::drawCheckBoxes(int col, int row)
{
    if (!userMode)
        return;
    const int firstCol = col < 0 ? flex->FixedCols() : col;
    const int lastCol = col < 0 ? flex->Cols() - 1 : std::min(col, flex->Cols() - 1);
    const int firstRow = row < 1 ? flex->FixedRows() : row;
    const int lastRow = row < 1 ? flex->Rows() - 1 : std::min(row, flex->Rows() - 1);
    const BulkPass pass(*this, qint64(lastRow - firstRow + 1) * (lastCol - firstCol + 1));
    for (int c = firstCol; c <= lastCol; ++c) {
        if (typeOf(c) != eCheckBox)
            continue;
        for (int r = firstRow; r <= lastRow; ++r)
            drawCheckBox(r, c);
    }
}

void VemoGridPrivate::layoutHostedGrid()
{
    const int widthTwips = pixelsToTwipsX(q->width(), q);
    const int heightTwips = pixelsToTwipsY(q->height(), q);
    QRect geometry = flex->geometry();
    geometry.moveTopLeft(QPoint(0, 0));
    if (widthTwips >= LayoutMarginTwips)
        geometry.setWidth(twipsToPixelsX(widthTwips - LayoutMarginTwips, q));
    if (heightTwips >= LayoutMarginTwips)
        geometry.setHeight(twipsToPixelsY(heightTwips - LayoutMarginTwips, q));
    flex->setGeometry(geometry);
}

void VemoGridPrivate::applyFrame()
{
    if (borderStyle == BorderNone)
        flex->setFrameStyle(QFrame::NoFrame);
    else if (appearance == flat)
        flex->setFrameStyle(QFrame::Box | QFrame::Plain);
    else
        flex->setFrameStyle(QFrame::Panel | QFrame::Sunken);
}

void VemoGridPrivate::setPicture(int row, int col, const QPixmap& picture, int alignment)
{
    cells.setPicture(row, col, picture, alignment);
}

void VemoGridPrivate::moveMarker(int row)
{
    if (markedRow >= flex->FixedRows())
        setPicture(markedRow, 0, QPixmap());
    const bool dataRow = row >= flex->FixedRows() && row < flex->Rows();
    if (dataRow)
        setPicture(row, 0, imgMarker, MarkerPictureAlignment);
    markedRow = dataRow ? row : 0;
}

void VemoGridPrivate::leaveCell()
{
    // While events are suppressed there is no LeaveCell and no auto-calculation either
    // (and the editor commit does nothing then).
    if (suppressEvents)
        return;
    Q_EMIT q->LeaveCell();
    if (editEnable) {
        commitEdit();
        autoCalculate();
    }
}

void VemoGridPrivate::leaveThenMove(bool accepted, const std::function<void()>& move)
{
    // A move the hosted grid refuses runs alone: it throws before anything changes, and no
    // leave-cell work is done for a cell that is not left.
    if (!accepted) {
        move();
        return;
    }
    leaveCell();
    // The hosted grid's own LeaveCell for this move is the step just run, not a second one.
    leaveAlreadyDone = true;
    const auto reset = qScopeGuard([this] { leaveAlreadyDone = false; });
    move();
}

void VemoGridPrivate::moveHostedCell(int row, int col)
{
    const QScopedValueRollback<bool> suppressed(suppressEvents, true);
    flex->setRow(row);
    flex->setCol(col);
}

void VemoGridPrivate::onHostedClick()
{
    Q_EMIT q->Click();
    lastMouseCol = flex->MouseCol();
    lastMouseRow = flex->MouseRow();
    const bool inFixedRows = lastMouseRow < flex->FixedRows();
    const bool inFixedCols = lastMouseCol < flex->FixedCols();
    if (inFixedRows) {
        const VemoGridLib::Column* const clicked = columnOrNull(lastMouseCol);
        if (!inFixedCols && sortable && clicked && clicked->SortType() != VemoSortNone)
            sort(lastMouseCol, SortNone);
        return;
    }
    if (inFixedCols)
        return;
    moveMarker(flex->Row());
    editing.clickDataCell();
}

void VemoGridPrivate::hostedLeaveCell()
{
    if (leaveAlreadyDone) {
        leaveAlreadyDone = false;
        return;
    }
    leaveCellContained();
}

void VemoGridPrivate::leaveCellContained()
{
    try {
        leaveCell();
    } catch (const VemoError&) {
    }
}

void VemoGridPrivate::hostedEnterCell()
{
    // The grid's own moves (bulk work) are not where the mouse is: nothing to record then.
    if (suppressEvents)
        return;
    leaveAlreadyDone = false;
    lastMouseCol = flex->MouseCol();
    lastMouseRow = flex->MouseRow();
    int rowSel = flex->RowSel();
    int colSel = flex->ColSel();
    QString value;
    Q_EMIT q->EnterCell(rowSel, colSel, value);
}

void VemoGridPrivate::hostedSelChange()
{
    Q_EMIT q->SelChange();
}

void VemoGridPrivate::hostedColsChanged()
{
    if (userMode)
        resizeColumns(flex->Cols());
}

void VemoGridPrivate::hostedLayoutChanged()
{
    editing.followCell();
}

void VemoGridPrivate::onHostedKeyDown(short& keyCode, short& shift)
{
    Q_EMIT q->KeyDown(keyCode, shift);
    // A key the grid moved on is not the hosted grid's to move on as well.
    if (editing.handleKey(keyCode, shift, nullptr))
        keyCode = 0;
}

void VemoGridPrivate::hostedRowColChange()
{
    Q_EMIT q->RowColChange();
}

void VemoGridPrivate::connectHostedGrid()
{
    cells.setCellEventSink(this);
    // The relays run inside the hosted grid's events: an error is reported and goes no further
    // (the signal-to-signal relays below are covered by the hosted grid's own event handlers).
    QObject::connect(flex, &FlexGrid::Click, q,
                     [this] { catchingErrors("VemoGrid Click", [this] { onHostedClick(); }); });
    QObject::connect(flex, &FlexGrid::DblClick, q, &VemoGrid::DblClick);
    QObject::connect(flex, &FlexGrid::Scroll, q, [this] {
        catchingErrors("VemoGrid Scroll", [this] {
            Q_EMIT q->Scroll();
            // An editor never floats over a cell that scrolled away; placing one scrolls too.
            if (!editing.placing())
                commitEdit();
        });
    });
    QObject::connect(flex, &FlexGrid::KeyDown, q, [this](short& keyCode, short& shift) {
        catchingErrors("VemoGrid KeyDown", [&] { onHostedKeyDown(keyCode, shift); });
    });
    QObject::connect(flex, &FlexGrid::KeyPress, q, &VemoGrid::KeyPress);
    QObject::connect(flex, &FlexGrid::KeyUp, q, &VemoGrid::KeyUp);
    using MouseSignal = void (VemoGrid::*)(short&, short&, float&, float&);
    // The relay holds the grid itself, not `this`: a lambda made inside a lambda and using the
    // polymorphic VemoGridPrivate's `this` fails AddressSanitizer with UBSan under GCC 12 (a
    // stack read at every relayed event).
    const auto relayMouse = [grid = q](MouseSignal signal) {
        return [grid, signal](short button, short shift, float x, float y) {
            catchingErrors("VemoGrid mouse event", [&] {
                Q_EMIT(grid->*signal)(button, shift, x, y);
            });
        };
    };
    QObject::connect(flex, &FlexGrid::MouseDown, q, relayMouse(&VemoGrid::MouseDown));
    QObject::connect(flex, &FlexGrid::MouseMove, q, relayMouse(&VemoGrid::MouseMove));
    QObject::connect(flex, &FlexGrid::MouseMove, q, [this] {
        catchingErrors("VemoGrid link pointer", [this] { editing.updateLinkPointer(); });
    });
    QObject::connect(flex, &FlexGrid::MouseUp, q, relayMouse(&VemoGrid::MouseUp));
}

// ---- creation and teardown -------------------------------------------------------------------

VemoGrid::VemoGrid(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<VemoGridPrivate>(this))
{
    d->applyFrame();
    d->layoutHostedGrid();
    d->flex->setRows(2);
    d->flex->setCols(2);
    d->flex->setFixedCols(1);
    d->flex->setFixedRows(1);
    d->connectHostedGrid();
    d->editing.createEditors();
    setFocusProxy(d->flex);
    InitProperties();
}

VemoGrid::~VemoGrid()
{
    QObject::disconnect(d->flex, nullptr, this, nullptr);
    d->cells.setCellEventSink(nullptr);
    for (VemoGridLib::Column* column : d->columns)
        delete column;
    d->columns.clear();
}

const FlexGrid* VemoGrid::hostedGrid() const
{
    return d->flex;
}

FlexGrid* VemoGrid::hostedGrid()
{
    return d->flex;
}

bool VemoGrid::UserMode() const
{
    return d->userMode;
}

void VemoGrid::setUserMode(bool userMode)
{
    d->userMode = userMode;
}

void VemoGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    catchingErrors("VemoGrid::resizeEvent", [this] { d->layoutHostedGrid(); });
}

void VemoGrid::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    catchingErrors("VemoGrid::changeEvent", [&] {
        if (event->type() == QEvent::EnabledChange)
            d->changed(QStringLiteral("Enabled"));
        else if (event->type() == QEvent::FontChange)
            d->changed(QStringLiteral("Font"));
    });
}

// ---- structure ----------------------------------------------------------------------------------

int VemoGrid::Rows() const
{
    return d->flex->Rows();
}

void VemoGrid::setRows(int rows)
{
    d->flex->setRows(rows);
    if (d->flex->FixedCols() < 1)
        d->flex->setFixedCols(1);
    if (d->flex->FixedRows() < 1)
        d->flex->setFixedRows(1);
    d->colourRows(-1);
    d->drawCheckBoxes(-1, -1);
    d->changed(QStringLiteral("Rows"));
}

int VemoGrid::Cols() const
{
    return d->flex->Cols();
}

void VemoGrid::setCols(int cols)
{
    // The hosted grid refuses a bad count before anything changes; the Column array follows
    // the new count through hostedColsChanged.
    d->flex->setCols(cols);
    d->changed(QStringLiteral("Cols"));
}

int VemoGrid::FixedRows() const
{
    return d->flex->FixedRows();
}

void VemoGrid::setFixedRows(int rows)
{
    d->flex->setFixedRows(rows);
    d->changed(QStringLiteral("FixedRows"));
}

int VemoGrid::FixedCols() const
{
    return d->flex->FixedCols();
}

void VemoGrid::setFixedCols(int cols)
{
    d->flex->setFixedCols(cols);
    d->changed(QStringLiteral("FixedCols"));
}

int VemoGrid::Row() const
{
    return d->flex->Row();
}

void VemoGrid::setRow(int row)
{
    d->leaveThenMove(row >= 0 && row < d->flex->Rows(), [this, row] { d->flex->setRow(row); });
}

int VemoGrid::Col() const
{
    return d->flex->Col();
}

void VemoGrid::setCol(int col)
{
    d->leaveThenMove(col >= 0 && col < d->flex->Cols(), [this, col] { d->flex->setCol(col); });
}

int VemoGrid::Rowsel() const
{
    return d->flex->RowSel();
}

void VemoGrid::setRowsel(int row)
{
    d->flex->setRowSel(row);
    d->changed(QStringLiteral("Rowsel"));
}

int VemoGrid::Colsel() const
{
    return d->flex->ColSel();
}

void VemoGrid::setColsel(int col)
{
    d->flex->setColSel(col);
    d->changed(QStringLiteral("Colsel"));
}

int VemoGrid::TopRow() const
{
    return d->flex->TopRow();
}

void VemoGrid::setTopRow(int row)
{
    d->flex->setTopRow(row);
    d->changed(QStringLiteral("TopRow"));
}

int VemoGrid::LeftCol() const
{
    return d->flex->LeftCol();
}

void VemoGrid::setLeftCol(int col)
{
    d->flex->setLeftCol(col);
    d->changed(QStringLiteral("LeftCol"));
}

QString VemoGrid::FormatString() const
{
    return d->flex->FormatString();
}

void VemoGrid::setFormatString(const QString& format)
{
    d->flex->setFormatString(format);
    d->changed(QStringLiteral("FormatString"));
    setCols(d->flex->Cols());
}

// ---- Column and ColType ----------------------------------------------------------------------

VemoGridLib::Column* VemoGrid::Column(int Col)
{
    return d->column(Col);
}

const VemoGridLib::Column* VemoGrid::Column(int Col) const
{
    return d->column(Col);
}

VemoGridColType VemoGrid::ColType(int Col) const
{
    return d->column(Col)->colType();
}

void VemoGrid::setColType(int Col, VemoGridColType type)
{
    d->column(Col)->setColType(type);
    switch (type) {
    case eTextBox:
    case eCalendar:
        d->flex->setColAlignment(Col, Flex::flexAlignLeftCenter);
        if (type == eCalendar)
            d->flex->setColWidth(Col, CalendarColumnWidth);
        break;
    case eCheckBox:
        d->drawCheckBoxes(Col, -1);
        d->flex->setColAlignment(Col, Flex::flexAlignLeftTop);
        d->flex->setColWidth(Col, CheckBoxColumnWidth);
        break;
    case eCurrency:
    case eNumeric:
    case eLong:
        d->flex->setColAlignment(Col, Flex::flexAlignRightCenter);
        break;
    case eComboBox:
    case ehyperlink:
    case eButton:
        break;
    }
}

int VemoGrid::COLWIDTH(int Col) const
{
    const int width = d->flex->ColWidth(Col);
    return width < 0 ? 1000 : width;
}

void VemoGrid::setCOLWIDTH(int Col, int twips)
{
    d->flex->setColWidth(Col, twips);
    d->changed(QStringLiteral("COLWIDTH"));
}

// ---- fields
// --------------------------------------------------------------------------------------

bool VemoGrid::EditEnable() const
{
    return d->editEnable;
}

void VemoGrid::setEditEnable(bool enable)
{
    d->editEnable = enable;
    d->changed(QStringLiteral("EditEnable"));
}

bool VemoGrid::NullLine() const
{
    return d->nullLine;
}

void VemoGrid::setNullLine(bool allow)
{
    d->nullLine = allow;
    d->changed(QStringLiteral("NullLine"));
}

bool VemoGrid::AutoGrow() const
{
    return d->autoGrow;
}

void VemoGrid::setAutoGrow(bool grow)
{
    d->autoGrow = grow;
    d->changed(QStringLiteral("AutoGrow"));
}

bool VemoGrid::LunarCalendar() const
{
    return d->lunarCalendar;
}

void VemoGrid::setLunarCalendar(bool lunar)
{
    d->lunarCalendar = lunar;
    d->changed(QStringLiteral("LunarCalendar"));
}

VemoGridScrollType VemoGrid::ScrollType() const
{
    return d->scrollType;
}

void VemoGrid::setScrollType(VemoGridScrollType type)
{
    d->scrollType = type;
    d->changed(QStringLiteral("ScrollType"));
}

short VemoGrid::ScrollNum() const
{
    return d->scrollNum;
}

void VemoGrid::setScrollNum(short rows)
{
    d->scrollNum = rows;
    d->changed(QStringLiteral("ScrollNum"));
}

int VemoGrid::CellAppearance() const
{
    return d->cellAppearance;
}

void VemoGrid::setCellAppearance(int appearance)
{
    d->cellAppearance = appearance;
    d->changed(QStringLiteral("CellAppearance"));
}

int VemoGrid::CellBorderStyle() const
{
    return d->cellBorderStyle;
}

void VemoGrid::setCellBorderStyle(int style)
{
    d->cellBorderStyle = style;
    d->changed(QStringLiteral("CellBorderStyle"));
}

OleColor VemoGrid::BackColor1() const
{
    return d->backColor1;
}

void VemoGrid::setBackColor1(OleColor color)
{
    d->setColour(d->backColor1, color, QStringLiteral("BackColor1"));
}

OleColor VemoGrid::BackColor2() const
{
    return d->backColor2;
}

void VemoGrid::setBackColor2(OleColor color)
{
    d->setColour(d->backColor2, color, QStringLiteral("BackColor2"));
}

OleColor VemoGrid::ReadOnlyColor() const
{
    return d->readOnlyColor;
}

void VemoGrid::setReadOnlyColor(OleColor color)
{
    d->setColour(d->readOnlyColor, color, QStringLiteral("ReadOnlyColor"));
}

bool VemoGrid::AssignCellColorSel() const
{
    return d->assignCellColorSel;
}

void VemoGrid::setAssignCellColorSel(bool assign)
{
    d->assignCellColorSel = assign;
    d->changed(QStringLiteral("AssignCellColorSel"));
}

OleColor VemoGrid::CellBackColorSel() const
{
    return d->cellBackColorSel;
}

void VemoGrid::setCellBackColorSel(OleColor color)
{
    d->cellBackColorSel = color;
    d->changed(QStringLiteral("CellBackColorSel"));
}

OleColor VemoGrid::CellForeColorSel() const
{
    return d->cellForeColorSel;
}

void VemoGrid::setCellForeColorSel(OleColor color)
{
    d->cellForeColorSel = color;
    d->changed(QStringLiteral("CellForeColorSel"));
}

bool VemoGrid::Redraw() const
{
    return d->flex->Redraw();
}

void VemoGrid::setRedraw(bool redraw)
{
    d->flex->setRedraw(redraw);
    d->changed(QStringLiteral("Redraw"));
}

QVariant VemoGrid::Tag() const
{
    return d->tag;
}

void VemoGrid::setTag(const QVariant& tag)
{
    d->tag = tag;
    d->changed(QStringLiteral("Tag"));
}

QAbstractItemModel* VemoGrid::DataSource() const
{
    return d->flex->DataSource();
}

void VemoGrid::setDataSource(QAbstractItemModel* model)
{
    {
        const auto suppressed = d->suppressEventsInScope();
        d->flex->setDataSource(model);
    }
    d->changed(QStringLiteral("DataSource"));
    ReSetData();
}

void VemoGrid::ReSetData()
{
    setCols(d->flex->Cols());
    setRows(d->flex->Rows());
}

bool VemoGrid::Enabled() const
{
    return isEnabled();
}

int VemoGrid::Appearance() const
{
    return d->appearance;
}

void VemoGrid::setAppearance(int appearance)
{
    d->appearance = appearance;
    d->applyFrame();
    d->changed(QStringLiteral("Appearance"));
}

int VemoGrid::BorderStyle() const
{
    return d->borderStyle;
}

void VemoGrid::setBorderStyle(int style)
{
    d->borderStyle = style;
    d->applyFrame();
    d->changed(QStringLiteral("BorderStyle"));
}

} // namespace VemoGridLib
