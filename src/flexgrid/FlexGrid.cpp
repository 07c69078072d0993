// SPDX-License-Identifier: MIT
// FlexGrid's structure, text, selection, look and row/column members, and its event plumbing.
#include "flexgrid/FlexGrid.h"
#include "flexgrid/FlexGrid_p.h"

#include "common/ErrorGuard.h"
#include "common/VemoError.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>
#include <QToolTip>

#include <algorithm>

namespace VemoGridLib {

namespace {

/// The error descriptions (VB's own texts for the standard numbers, the grid's for its own).
QString errorText(int number)
{
    switch (number) {
    case Flex::flexerrInvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case Flex::flexerrOutOfMemory:
        return QStringLiteral("Out of memory");
    case Flex::flexerrInvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    case Flex::flexerrSubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case Flex::flexerrCannotRemoveFixedRow:
        return QStringLiteral("Cannot do a RemoveItem on a fixed row");
    case Flex::flexerrCannotAddFixedRow:
        return QStringLiteral("Cannot use AddItem on a fixed row");
    case Flex::flexerrNoSuchRow:
        return QStringLiteral("Grid does not contain that row");
    case Flex::flexerrBadColForAlignment:
        return QStringLiteral("Invalid Col value for alignment");
    case Flex::flexerrBadAlignment:
        return QStringLiteral("Invalid Alignment value");
    case Flex::flexerrBadRow:
        return QStringLiteral("Invalid Row value");
    case Flex::flexerrBadCol:
        return QStringLiteral("Invalid Col value");
    case Flex::flexerrBadRowHeight:
        return QStringLiteral("Invalid Row Height value");
    case Flex::flexerrBadColWidth:
        return QStringLiteral("Invalid Col Width value");
    case Flex::flexerrCannotRemoveLastRow:
        return QStringLiteral("Can not remove last non-fixed row");
    case Flex::flexerrFixedRowsTooMany:
        return QStringLiteral("FixedRows must be at least one less than Rows value");
    case Flex::flexerrFixedColsTooMany:
        return QStringLiteral("FixedCols must be at least one less than Cols value");
    default:
        return QStringLiteral("Application-defined or object-defined error");
    }
}

/// 380 unless low <= value <= high (the enumerated properties).
void checkSetting(int value, int low, int high)
{
    if (value < low || value > high)
        FlexGridPrivate::raise(Flex::flexerrInvalidPropertyValue);
}

/// 30005 unless the alignment is one of 0–9.
void checkAlignmentValue(int alignment)
{
    if (alignment < Flex::flexAlignLeftTop || alignment > Flex::flexAlignGeneral)
        FlexGridPrivate::raise(Flex::flexerrBadAlignment);
}

bool isValidMousePointer(int pointer)
{
    return (pointer >= Flex::flexDefault && pointer <= Flex::flexSizeAll) ||
           pointer == Flex::flexCustom;
}

} // namespace

// ---- private: errors, current cell, effective look ------------------------------------------

FlexGridPrivate::FlexGridPrivate(FlexGrid* grid)
    : q(grid)
{
    store.setColCount(2);
    store.setRowCount(2);
}

void FlexGridPrivate::raise(int number)
{
    throw VemoError(number, errorText(number));
}

void FlexGridPrivate::checkRow(int r) const
{
    if (r < 0 || r >= store.rowCount())
        raise(Flex::flexerrBadRow);
}

void FlexGridPrivate::checkCol(int c) const
{
    if (c < 0 || c >= store.colCount())
        raise(Flex::flexerrBadCol);
}

void FlexGridPrivate::checkCurrentCell() const
{
    checkRow(row);
    checkCol(col);
}

void FlexGridPrivate::applySelectionMode(int& newRowSel, int& newColSel) const
{
    if (selectionMode == Flex::flexSelectionByRow)
        newColSel = std::max(0, store.colCount() - 1);
    else if (selectionMode == Flex::flexSelectionByColumn)
        newRowSel = std::max(0, store.rowCount() - 1);
}

void FlexGridPrivate::moveCurrent(int newRow, int newCol, int newRowSel, int newColSel)
{
    applySelectionMode(newRowSel, newColSel);
    const bool cellChanges = newRow != row || newCol != col;
    const bool selectionChanges = newRowSel != rowSel || newColSel != colSel || cellChanges;
    if (!cellChanges && !selectionChanges)
        return;
    if (cellChanges)
        notify(&FlexCellEventSink::hostedLeaveCell, &FlexGrid::LeaveCell);
    row = newRow;
    col = newCol;
    rowSel = newRowSel;
    colSel = newColSel;
    if (cellChanges)
        ++cellMoves;
    requestRepaint();
    if (selectionChanges)
        notify(&FlexCellEventSink::hostedSelChange, &FlexGrid::SelChange);
    if (cellChanges) {
        notify(&FlexCellEventSink::hostedEnterCell, &FlexGrid::EnterCell);
        notify(&FlexCellEventSink::hostedRowColChange, &FlexGrid::RowColChange);
    }
}

void FlexGridPrivate::setSelection(int newRowSel, int newColSel, bool quiet)
{
    applySelectionMode(newRowSel, newColSel);
    if (newRowSel == rowSel && newColSel == colSel)
        return;
    rowSel = newRowSel;
    colSel = newColSel;
    requestRepaint();
    if (!quiet)
        notify(&FlexCellEventSink::hostedSelChange, &FlexGrid::SelChange);
}

void FlexGridPrivate::notify(void (FlexCellEventSink::*hosting)(), void (FlexGrid::*signal)())
{
    if (cellEventSink)
        (cellEventSink->*hosting)();
    if (cellSignalsWanted)
        Q_EMIT(q->*signal)();
}

void FlexGridPrivate::clampCurrentCell()
{
    const int lastRow = std::max(0, store.rowCount() - 1);
    const int lastCol = std::max(0, store.colCount() - 1);
    moveCurrent(std::min(row, lastRow), std::min(col, lastCol), std::min(rowSel, lastRow),
                std::min(colSel, lastCol));
}

bool FlexGridPrivate::isSelected(int r, int c) const
{
    const bool rowsWhole = selectionMode == Flex::flexSelectionByColumn;
    const bool colsWhole = selectionMode == Flex::flexSelectionByRow;
    const bool inRows =
        rowsWhole ? r >= fixedRows : r >= std::min(row, rowSel) && r <= std::max(row, rowSel);
    const bool inCols =
        colsWhole ? c >= fixedCols : c >= std::min(col, colSel) && c <= std::max(col, colSel);
    return inRows && inCols;
}

QRect FlexGridPrivate::fillTarget() const
{
    if (fillStyle == Flex::flexFillSingle)
        return QRect(col, row, 1, 1);
    return QRect(QPoint(std::min(col, colSel), std::min(row, rowSel)),
                 QPoint(std::max(col, colSel), std::max(row, rowSel)));
}

QFont FlexGridPrivate::fixedFont() const
{
    return fontFixed.value_or(q->font());
}

QFont FlexGridPrivate::cellFont(int r, int c) const
{
    QFont font = isFixed(r, c) ? fixedFont() : q->font();
    const FlexCellFormat& look = store.format(r, c);
    if (!look.fontName.isEmpty())
        font.setFamily(look.fontName);
    if (look.fontSize > 0)
        font.setPointSizeF(look.fontSize);
    if (look.bold >= 0)
        font.setBold(look.bold != 0);
    if (look.italic >= 0)
        font.setItalic(look.italic != 0);
    if (look.underline >= 0)
        font.setUnderline(look.underline != 0);
    if (look.fontWidth > 0) {
        // A font's average character is about half its size wide; stretch towards the width.
        const double normal = std::max(1.0, font.pointSizeF() / 2);
        font.setStretch(std::clamp(int(100 * look.fontWidth / normal), 1, 4000));
    }
    return font;
}

int FlexGridPrivate::effectiveAlignment(int r, int c) const
{
    const int own = store.format(r, c).alignment;
    if (own >= 0)
        return own;
    if (isFixed(r, c)) {
        const int fixedAlignment = store.colAlignmentFixed(c);
        return fixedAlignment >= 0 ? fixedAlignment : store.colAlignment(c);
    }
    return store.colAlignment(c);
}

// ---- construction ----------------------------------------------------------------------------

FlexGrid::FlexGrid(QWidget* parent)
    : QAbstractScrollArea(parent)
    , d(std::make_unique<FlexGridPrivate>(this))
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(1);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->setTracking(d->scrollTrack);
    horizontalScrollBar()->setTracking(d->scrollTrack);
    d->refreshMetrics();
    d->relayout();
}

FlexGrid::~FlexGrid()
{
    d->unbindModel();
}

// ---- rows, columns and fixed counts ---------------------------------------------------------

int FlexGrid::Rows() const
{
    return d->store.rowCount();
}

void FlexGrid::setRows(int rows)
{
    if (rows < 0)
        FlexGridPrivate::raise(Flex::flexerrBadRow);
    const bool hadDataRows = d->store.rowCount() > d->fixedRows;
    d->store.setRowCount(rows);
    d->fixedRows = std::min(d->fixedRows, rows);
    d->topRow = std::max(d->topRow, d->fixedRows);
    d->clampCurrentCell();
    if (!hadDataRows && rows > d->fixedRows && d->row < d->fixedRows)
        d->moveCurrent(d->fixedRows, d->col, d->fixedRows, d->col);
    d->relayout();
}

int FlexGrid::Cols() const
{
    return d->store.colCount();
}

void FlexGrid::setCols(int cols)
{
    if (cols < 0)
        FlexGridPrivate::raise(Flex::flexerrBadCol);
    const bool hadDataCols = d->store.colCount() > d->fixedCols;
    d->store.setColCount(cols);
    d->fixedCols = std::min(d->fixedCols, cols);
    d->leftCol = std::max(d->leftCol, d->fixedCols);
    d->clampCurrentCell();
    if (!hadDataCols && cols > d->fixedCols && d->col < d->fixedCols)
        d->moveCurrent(d->row, d->fixedCols, d->row, d->fixedCols);
    d->relayout();
    if (d->cellEventSink)
        d->cellEventSink->hostedColsChanged();
}

int FlexGrid::FixedRows() const
{
    return d->fixedRows;
}

void FlexGrid::setFixedRows(int rows)
{
    if (rows < 0)
        FlexGridPrivate::raise(Flex::flexerrBadRow);
    if (rows >= d->store.rowCount())
        FlexGridPrivate::raise(Flex::flexerrFixedRowsTooMany);
    d->fixedRows = rows;
    d->topRow = rows;
    d->moveCurrent(rows, d->col, rows, d->colSel);
    d->relayout();
}

int FlexGrid::FixedCols() const
{
    return d->fixedCols;
}

void FlexGrid::setFixedCols(int cols)
{
    if (cols < 0)
        FlexGridPrivate::raise(Flex::flexerrBadCol);
    if (cols >= d->store.colCount())
        FlexGridPrivate::raise(Flex::flexerrFixedColsTooMany);
    d->fixedCols = cols;
    d->leftCol = cols;
    d->moveCurrent(d->row, cols, d->rowSel, cols);
    d->relayout();
}

// ---- cell text ----------------------------------------------------------------------------------

QString FlexGrid::TextMatrix(int row, int col) const
{
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols())
        FlexGridPrivate::raise(Flex::flexerrSubscriptOutOfRange);
    return d->store.text(row, col);
}

void FlexGrid::setTextMatrix(int row, int col, const QString& text)
{
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols())
        FlexGridPrivate::raise(Flex::flexerrSubscriptOutOfRange);
    d->store.setText(row, col, text);
    d->requestRepaint();
}

QString FlexGrid::Text() const
{
    if (d->row >= Rows() || d->col >= Cols())
        return QString();
    return d->store.text(d->row, d->col);
}

void FlexGrid::setText(const QString& text)
{
    d->checkCurrentCell();
    const QRect target = d->fillTarget();
    for (int r = target.top(); r <= target.bottom(); ++r) {
        for (int c = target.left(); c <= target.right(); ++c)
            d->store.setText(r, c, text);
    }
    d->requestRepaint();
}

QString FlexGrid::TextArray(int index) const
{
    const qint64 cells = qint64(Rows()) * Cols();
    if (index < 0 || index >= cells)
        FlexGridPrivate::raise(Flex::flexerrSubscriptOutOfRange);
    return d->store.text(index / Cols(), index % Cols());
}

void FlexGrid::setTextArray(int index, const QString& text)
{
    const qint64 cells = qint64(Rows()) * Cols();
    if (index < 0 || index >= cells)
        FlexGridPrivate::raise(Flex::flexerrSubscriptOutOfRange);
    d->store.setText(index / Cols(), index % Cols(), text);
    d->requestRepaint();
}

QString FlexGrid::FormatString() const
{
    return d->formatString;
}

void FlexGrid::setFormatString(const QString& format)
{
    d->formatString = format;
    d->applyFormatString(format);
    d->relayout();
}

// ---- current cell and selection
// ----------------------------------------------------------------

int FlexGrid::Row() const
{
    return d->row;
}

void FlexGrid::setRow(int row)
{
    d->checkRow(row);
    d->checkCol(d->col);
    d->moveCurrent(row, d->col, row, d->col);
}

int FlexGrid::Col() const
{
    return d->col;
}

void FlexGrid::setCol(int col)
{
    d->checkCol(col);
    d->checkRow(d->row);
    d->moveCurrent(d->row, col, d->row, col);
}

int FlexGrid::RowSel() const
{
    return d->rowSel;
}

void FlexGrid::setRowSel(int row)
{
    d->checkRow(row);
    d->setSelection(row, d->colSel);
}

int FlexGrid::ColSel() const
{
    return d->colSel;
}

void FlexGrid::setColSel(int col)
{
    d->checkCol(col);
    d->setSelection(d->rowSel, col);
}

int FlexGrid::SelectionMode() const
{
    return d->selectionMode;
}

void FlexGrid::setSelectionMode(int mode)
{
    checkSetting(mode, Flex::flexSelectionFree, Flex::flexSelectionByColumn);
    d->selectionMode = mode;
    d->setSelection(d->rowSel, d->colSel);
    d->requestRepaint();
}

bool FlexGrid::AllowBigSelection() const
{
    return d->allowBigSelection;
}

void FlexGrid::setAllowBigSelection(bool allow)
{
    d->allowBigSelection = allow;
}

// ---- per-cell look
// -----------------------------------------------------------------------------

int FlexGrid::FillStyle() const
{
    return d->fillStyle;
}

void FlexGrid::setFillStyle(int style)
{
    checkSetting(style, Flex::flexFillSingle, Flex::flexFillRepeat);
    d->fillStyle = style;
}

namespace {

/// Applies one scalar look change to every cell FillStyle addresses.
void setTargetLook(FlexGridPrivate& d, FlexCellStore::FormatField field, double value)
{
    d.checkCurrentCell();
    const QRect target = d.fillTarget();
    for (int r = target.top(); r <= target.bottom(); ++r) {
        for (int c = target.left(); c <= target.right(); ++c)
            d.store.setFormatValue(r, c, field, value);
    }
    d.requestRepaint();
}

/// Applies a change to the whole look of every cell FillStyle addresses.
template <typename Change>
void changeTargetLook(FlexGridPrivate& d, Change&& change)
{
    d.checkCurrentCell();
    const QRect target = d.fillTarget();
    for (int r = target.top(); r <= target.bottom(); ++r) {
        for (int c = target.left(); c <= target.right(); ++c) {
            FlexCellFormat look = d.store.format(r, c);
            change(look);
            d.store.setFormat(r, c, look);
        }
    }
    d.requestRepaint();
}

const FlexCellFormat& currentLook(const FlexGridPrivate& d)
{
    d.checkCurrentCell();
    return d.store.format(d.row, d.col);
}

QFont currentBaseFont(const FlexGridPrivate& d)
{
    return d.isFixed(d.row, d.col) ? d.fixedFont() : d.q->font();
}

} // namespace

OleColor FlexGrid::CellBackColor() const
{
    return currentLook(*d).backColor;
}

void FlexGrid::setCellBackColor(OleColor color)
{
    setTargetLook(*d, FlexCellStore::FormatField::BackColor, color);
}

OleColor FlexGrid::CellForeColor() const
{
    return currentLook(*d).foreColor;
}

void FlexGrid::setCellForeColor(OleColor color)
{
    setTargetLook(*d, FlexCellStore::FormatField::ForeColor, color);
}

int FlexGrid::CellAlignment() const
{
    d->checkCurrentCell();
    return d->effectiveAlignment(d->row, d->col);
}

void FlexGrid::setCellAlignment(int alignment)
{
    checkAlignmentValue(alignment);
    setTargetLook(*d, FlexCellStore::FormatField::Alignment, alignment);
}

bool FlexGrid::CellFontBold() const
{
    const int own = currentLook(*d).bold;
    return own >= 0 ? own != 0 : currentBaseFont(*d).bold();
}

void FlexGrid::setCellFontBold(bool bold)
{
    setTargetLook(*d, FlexCellStore::FormatField::Bold, bold ? 1 : 0);
}

bool FlexGrid::CellFontItalic() const
{
    const int own = currentLook(*d).italic;
    return own >= 0 ? own != 0 : currentBaseFont(*d).italic();
}

void FlexGrid::setCellFontItalic(bool italic)
{
    setTargetLook(*d, FlexCellStore::FormatField::Italic, italic ? 1 : 0);
}

bool FlexGrid::CellFontUnderline() const
{
    const int own = currentLook(*d).underline;
    return own >= 0 ? own != 0 : currentBaseFont(*d).underline();
}

void FlexGrid::setCellFontUnderline(bool underline)
{
    setTargetLook(*d, FlexCellStore::FormatField::Underline, underline ? 1 : 0);
}

QString FlexGrid::CellFontName() const
{
    const QString& own = currentLook(*d).fontName;
    return own.isEmpty() ? currentBaseFont(*d).family() : own;
}

void FlexGrid::setCellFontName(const QString& name)
{
    changeTargetLook(*d, [&name](FlexCellFormat& look) { look.fontName = name; });
}

float FlexGrid::CellFontSize() const
{
    const float own = currentLook(*d).fontSize;
    return own > 0 ? own : float(currentBaseFont(*d).pointSizeF());
}

void FlexGrid::setCellFontSize(float points)
{
    if (!(points > 0))
        FlexGridPrivate::raise(Flex::flexerrInvalidPropertyValue);
    setTargetLook(*d, FlexCellStore::FormatField::FontSize, points);
}

float FlexGrid::CellFontWidth() const
{
    return currentLook(*d).fontWidth;
}

void FlexGrid::setCellFontWidth(float points)
{
    if (points < 0)
        FlexGridPrivate::raise(Flex::flexerrInvalidPropertyValue);
    setTargetLook(*d, FlexCellStore::FormatField::FontWidth, points);
}

QPixmap FlexGrid::CellPicture() const
{
    return currentLook(*d).picture;
}

void FlexGrid::setCellPicture(const QPixmap& picture)
{
    changeTargetLook(*d, [&picture](FlexCellFormat& look) { look.picture = picture; });
}

int FlexGrid::CellPictureAlignment() const
{
    return currentLook(*d).pictureAlignment;
}

void FlexGrid::setCellPictureAlignment(int alignment)
{
    if (alignment < Flex::flexAlignLeftTop || alignment > Flex::flexAlignRightBottom)
        FlexGridPrivate::raise(Flex::flexerrBadAlignment);
    setTargetLook(*d, FlexCellStore::FormatField::PictureAlignment, alignment);
}

int FlexGrid::CellTextStyle() const
{
    const int own = currentLook(*d).textStyle;
    if (own >= 0)
        return own;
    return d->isFixed(d->row, d->col) ? d->textStyleFixed : d->textStyle;
}

void FlexGrid::setCellTextStyle(int style)
{
    checkSetting(style, Flex::flexTextFlat, Flex::flexTextInsetLight);
    setTargetLook(*d, FlexCellStore::FormatField::TextStyle, style);
}

namespace {

void checkAlignmentColumn(const FlexGridPrivate& d, int col)
{
    if (col < 0 || col >= d.store.colCount())
        FlexGridPrivate::raise(Flex::flexerrBadColForAlignment);
}

/// Sets a column alignment of `col`, or of every column for −1, after the checks.
void setColumnAlignment(FlexGridPrivate& d, int col, int alignment,
                        void (FlexCellStore::*set)(int, int))
{
    if (col != -1)
        checkAlignmentColumn(d, col);
    checkAlignmentValue(alignment);
    const int first = col == -1 ? 0 : col;
    const int last = col == -1 ? d.store.colCount() - 1 : col;
    for (int c = first; c <= last; ++c)
        (d.store.*set)(c, alignment);
    d.requestRepaint();
}

} // namespace

int FlexGrid::ColAlignment(int col) const
{
    checkAlignmentColumn(*d, col);
    return d->store.colAlignment(col);
}

void FlexGrid::setColAlignment(int col, int alignment)
{
    setColumnAlignment(*d, col, alignment, &FlexCellStore::setColAlignment);
}

int FlexGrid::ColAlignmentFixed(int col) const
{
    checkAlignmentColumn(*d, col);
    const int own = d->store.colAlignmentFixed(col);
    return own >= 0 ? own : d->store.colAlignment(col);
}

void FlexGrid::setColAlignmentFixed(int col, int alignment)
{
    setColumnAlignment(*d, col, alignment, &FlexCellStore::setColAlignmentFixed);
}

int FlexGrid::MergeCells() const
{
    return d->mergeCells;
}

void FlexGrid::setMergeCells(int setting)
{
    checkSetting(setting, Flex::flexMergeNever, Flex::flexMergeRestrictAll);
    d->mergeCells = setting;
    d->requestRepaint();
}

bool FlexGrid::MergeRow(int row) const
{
    d->checkRow(row);
    return d->store.mergeRow(row);
}

void FlexGrid::setMergeRow(int row, bool merge)
{
    d->checkRow(row);
    d->store.setMergeRow(row, merge);
    d->requestRepaint();
}

bool FlexGrid::MergeCol(int col) const
{
    d->checkCol(col);
    return d->store.mergeCol(col);
}

void FlexGrid::setMergeCol(int col, bool merge)
{
    d->checkCol(col);
    d->store.setMergeCol(col, merge);
    d->requestRepaint();
}

qint32 FlexGrid::RowData(int row) const
{
    d->checkRow(row);
    return d->store.rowData(row);
}

void FlexGrid::setRowData(int row, qint32 value)
{
    d->checkRow(row);
    d->store.setRowData(row, value);
}

qint32 FlexGrid::ColData(int col) const
{
    d->checkCol(col);
    return d->store.colData(col);
}

void FlexGrid::setColData(int col, qint32 value)
{
    d->checkCol(col);
    d->store.setColData(col, value);
}

// ---- row and column operations
// ----------------------------------------------------------------

void FlexGrid::setColPosition(int col, int to)
{
    if (col < 0 || col >= Cols() || to < 0 || to >= Cols())
        FlexGridPrivate::raise(Flex::flexerrSubscriptOutOfRange);
    d->store.moveCol(col, to);
    d->relayout();
}

void FlexGrid::setRowPosition(int row, int to)
{
    if (row < 0 || row >= Rows() || to < 0 || to >= Rows())
        FlexGridPrivate::raise(Flex::flexerrSubscriptOutOfRange);
    d->store.moveRow(row, to);
    d->relayout();
}

void FlexGrid::AddItem(const QString& item)
{
    AddItem(item, Rows());
}

void FlexGrid::AddItem(const QString& item, int index)
{
    if (index >= 0 && index < d->fixedRows)
        FlexGridPrivate::raise(Flex::flexerrCannotAddFixedRow);
    if (index < 0 || index > Rows())
        FlexGridPrivate::raise(Flex::flexerrNoSuchRow);
    d->store.insertRow(index);
    d->store.setRowTexts(index, item);
    // A row more never moves the rows or columns in view: only the bars' range changes.
    d->updateScrollBars();
    d->requestRepaint();
}

void FlexGrid::RemoveItem(int index)
{
    if (index >= 0 && index < d->fixedRows)
        FlexGridPrivate::raise(Flex::flexerrCannotRemoveFixedRow);
    if (index < 0 || index >= Rows())
        FlexGridPrivate::raise(Flex::flexerrNoSuchRow);
    if (Rows() - d->fixedRows == 1)
        FlexGridPrivate::raise(Flex::flexerrCannotRemoveLastRow);
    d->store.removeRow(index);
    d->clampCurrentCell();
    d->relayout();
}

void FlexGrid::Clear()
{
    d->store.clearCells();
    d->requestRepaint();
}

void FlexGrid::ClearStructure()
{
    d->unbindModel();
}

void FlexGrid::setSort(int setting)
{
    checkSetting(setting, Flex::flexSortNone, Flex::flexSortCustom);
    d->sort(setting);
}

// ---- grid-wide look
// -----------------------------------------------------------------------------

namespace {

void setColor(FlexGridPrivate& d, OleColor& field, OleColor color)
{
    field = color;
    d.requestRepaint();
}

} // namespace

OleColor FlexGrid::BackColor() const
{
    return d->backColor;
}

void FlexGrid::setBackColor(OleColor color)
{
    setColor(*d, d->backColor, color);
}

OleColor FlexGrid::ForeColor() const
{
    return d->foreColor;
}

void FlexGrid::setForeColor(OleColor color)
{
    setColor(*d, d->foreColor, color);
}

OleColor FlexGrid::BackColorBkg() const
{
    return d->backColorBkg;
}

void FlexGrid::setBackColorBkg(OleColor color)
{
    setColor(*d, d->backColorBkg, color);
}

OleColor FlexGrid::BackColorFixed() const
{
    return d->backColorFixed;
}

void FlexGrid::setBackColorFixed(OleColor color)
{
    setColor(*d, d->backColorFixed, color);
}

OleColor FlexGrid::ForeColorFixed() const
{
    return d->foreColorFixed;
}

void FlexGrid::setForeColorFixed(OleColor color)
{
    setColor(*d, d->foreColorFixed, color);
}

OleColor FlexGrid::BackColorSel() const
{
    return d->backColorSel;
}

void FlexGrid::setBackColorSel(OleColor color)
{
    setColor(*d, d->backColorSel, color);
}

OleColor FlexGrid::ForeColorSel() const
{
    return d->foreColorSel;
}

void FlexGrid::setForeColorSel(OleColor color)
{
    setColor(*d, d->foreColorSel, color);
}

OleColor FlexGrid::GridColor() const
{
    return d->gridColor;
}

void FlexGrid::setGridColor(OleColor color)
{
    setColor(*d, d->gridColor, color);
}

OleColor FlexGrid::GridColorFixed() const
{
    return d->gridColorFixed;
}

void FlexGrid::setGridColorFixed(OleColor color)
{
    setColor(*d, d->gridColorFixed, color);
}

namespace {

void setSetting(FlexGridPrivate& d, int& field, int value, int low, int high)
{
    checkSetting(value, low, high);
    field = value;
    d.requestRepaint();
}

} // namespace

int FlexGrid::GridLines() const
{
    return d->gridLines;
}

void FlexGrid::setGridLines(int style)
{
    setSetting(*d, d->gridLines, style, Flex::flexGridNone, Flex::flexGridDots);
}

int FlexGrid::GridLinesFixed() const
{
    return d->gridLinesFixed;
}

void FlexGrid::setGridLinesFixed(int style)
{
    setSetting(*d, d->gridLinesFixed, style, Flex::flexGridNone, Flex::flexGridDots);
}

int FlexGrid::GridLineWidth() const
{
    return d->gridLineWidth;
}

void FlexGrid::setGridLineWidth(int pixels)
{
    setSetting(*d, d->gridLineWidth, pixels, 1, 0x7FFF);
}

QFont FlexGrid::Font() const
{
    return font();
}

QFont FlexGrid::FontFixed() const
{
    return d->fixedFont();
}

void FlexGrid::setFontFixed(const QFont& font)
{
    d->fontFixed = font;
    d->refreshMetrics();
    d->relayout();
}

int FlexGrid::FocusRect() const
{
    return d->focusRect;
}

void FlexGrid::setFocusRect(int style)
{
    setSetting(*d, d->focusRect, style, Flex::flexFocusNone, Flex::flexFocusHeavy);
}

int FlexGrid::HighLight() const
{
    return d->highLight;
}

void FlexGrid::setHighLight(int setting)
{
    setSetting(*d, d->highLight, setting, Flex::flexHighlightNever, Flex::flexHighlightWithFocus);
}

int FlexGrid::TextStyle() const
{
    return d->textStyle;
}

void FlexGrid::setTextStyle(int style)
{
    setSetting(*d, d->textStyle, style, Flex::flexTextFlat, Flex::flexTextInsetLight);
}

int FlexGrid::TextStyleFixed() const
{
    return d->textStyleFixed;
}

void FlexGrid::setTextStyleFixed(int style)
{
    setSetting(*d, d->textStyleFixed, style, Flex::flexTextFlat, Flex::flexTextInsetLight);
}

bool FlexGrid::WordWrap() const
{
    return d->wordWrap;
}

void FlexGrid::setWordWrap(bool wrap)
{
    d->wordWrap = wrap;
    d->requestRepaint();
}

int FlexGrid::AllowUserResizing() const
{
    return d->allowUserResizing;
}

void FlexGrid::setAllowUserResizing(int setting)
{
    setSetting(*d, d->allowUserResizing, setting, Flex::flexResizeNone, Flex::flexResizeBoth);
}

bool FlexGrid::Redraw() const
{
    return d->redraw;
}

void FlexGrid::setRedraw(bool redraw)
{
    d->redraw = redraw;
    if (redraw) {
        d->updateScrollBars();
        viewport()->update();
    }
}

int FlexGrid::MousePointer() const
{
    return d->mousePointer;
}

void FlexGrid::setMousePointer(int pointer)
{
    if (!isValidMousePointer(pointer))
        FlexGridPrivate::raise(Flex::flexerrInvalidPropertyValue);
    d->mousePointer = pointer;
    d->updateCursor();
}

QCursor FlexGrid::MouseIcon() const
{
    return d->mouseIcon;
}

void FlexGrid::setMouseIcon(const QCursor& cursor)
{
    d->mouseIcon = cursor;
    d->updateCursor();
}

QPixmap FlexGrid::Picture() const
{
    return d->snapshot();
}

int FlexGrid::PictureType() const
{
    return d->pictureType;
}

void FlexGrid::setPictureType(int type)
{
    checkSetting(type, Flex::flexPictureColor, Flex::flexPictureMonochrome);
    d->pictureType = type;
}

QAbstractItemModel* FlexGrid::DataSource() const
{
    return d->dataSource.data();
}

void FlexGrid::setDataSource(QAbstractItemModel* model)
{
    d->unbindModel();
    if (model)
        d->bindModel(model);
}

// ---- events -------------------------------------------------------------------------------------

// Nothing thrown here may reach Qt's event loop: an error raised by a directly connected
// handler (KeyDown setting a bad Row) ends that event's work and is reported with qWarning. The
// grid's state stays whole, as the setters check before they change anything.

bool FlexGrid::event(QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal) {
        catchingErrors("FlexGrid::event", [this] {
            d->refreshMetrics();
            d->relayout();
        });
    }
    // Tab belongs to the grid's KeyDown (its hosts move between cells with it), not to the
    // focus chain.
    if (event->type() == QEvent::KeyPress) {
        auto* keyEvent = static_cast<QKeyEvent*>(event);
        if (keyEvent->key() == Qt::Key_Tab || keyEvent->key() == Qt::Key_Backtab) {
            keyPressEvent(keyEvent);
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

bool FlexGrid::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    // A number shown as "###" tells its value on hovering.
    const auto* help = static_cast<QHelpEvent*>(event);
    QString text;
    catchingErrors("FlexGrid::viewportEvent", [&] { text = d->hiddenNumberAt(help->pos()); });
    if (text.isEmpty())
        return QAbstractScrollArea::viewportEvent(event);
    QToolTip::showText(help->globalPos(), text, viewport());
    return true;
}

void FlexGrid::paintEvent(QPaintEvent* event)
{
    if (!d->redraw)
        return;
    QPainter painter(viewport());
    catchingErrors("FlexGrid::paintEvent", [&] { d->paint(painter, event->rect()); });
}

void FlexGrid::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    catchingErrors("FlexGrid::resizeEvent", [this] {
        d->relayout();
        // A new size shows or hides the bars, which changes the viewport: settled here.
        if (d->redraw)
            d->syncScrollBars();
    });
}

void FlexGrid::scrollContentsBy(int, int)
{
    catchingErrors("FlexGrid::scrollContentsBy", [this] { d->scrollFromBars(); });
}

void FlexGrid::mousePressEvent(QMouseEvent* event)
{
    catchingErrors("FlexGrid::mousePressEvent", [&] { d->mousePress(event); });
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event)
{
    catchingErrors("FlexGrid::mouseMoveEvent", [&] { d->mouseMove(event); });
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event)
{
    catchingErrors("FlexGrid::mouseReleaseEvent", [&] { d->mouseRelease(event); });
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    catchingErrors("FlexGrid::mouseDoubleClickEvent", [&] { d->mouseDoubleClick(event); });
}

void FlexGrid::wheelEvent(QWheelEvent* event)
{
    catchingErrors("FlexGrid::wheelEvent", [&] { d->wheel(event); });
}

void FlexGrid::keyPressEvent(QKeyEvent* event)
{
    catchingErrors("FlexGrid::keyPressEvent", [&] { d->keyPress(event); });
}

void FlexGrid::keyReleaseEvent(QKeyEvent* event)
{
    catchingErrors("FlexGrid::keyReleaseEvent", [&] { d->keyRelease(event); });
}

void FlexGrid::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    if (d->highLight == Flex::flexHighlightWithFocus || d->focusRect != Flex::flexFocusNone)
        d->requestRepaint();
    catchingErrors("FlexGrid::focusInEvent", [this] { Q_EMIT GotFocus(); });
}

void FlexGrid::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    if (d->highLight == Flex::flexHighlightWithFocus || d->focusRect != Flex::flexFocusNone)
        d->requestRepaint();
    catchingErrors("FlexGrid::focusOutEvent", [this] { Q_EMIT LostFocus(); });
}

void FlexGrid::connectNotify(const QMetaMethod& signal)
{
    QAbstractScrollArea::connectNotify(signal);
    if (signal == QMetaMethod::fromSignal(&FlexGrid::LeaveCell) ||
        signal == QMetaMethod::fromSignal(&FlexGrid::SelChange) ||
        signal == QMetaMethod::fromSignal(&FlexGrid::EnterCell) ||
        signal == QMetaMethod::fromSignal(&FlexGrid::RowColChange))
        d->cellSignalsWanted = true;
}

void FlexGrid::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == d->dragScrollTimer.timerId())
        catchingErrors("FlexGrid::timerEvent", [this] { d->dragScrollTick(); });
    else
        QAbstractScrollArea::timerEvent(event);
}

void FlexGrid::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    catchingErrors("FlexGrid::changeEvent", [&] {
        if (event->type() == QEvent::FontChange)
            d->refreshMetrics();
        if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
            d->relayout();
    });
}

} // namespace VemoGridLib
