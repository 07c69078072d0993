// SPDX-License-Identifier: MIT
// The pass-through members of VemoGrid, each forwarding to the hosted grid's member of
// the same name; every setter reports the change under that name.
#include "grid/VemoGrid_p.h"

namespace VemoGridLib {

int VemoGrid::RowHeightMin() const
{
    return d->flex->RowHeightMin();
}

void VemoGrid::setRowHeightMin(int value)
{
    d->flex->setRowHeightMin(value);
    d->changed(QStringLiteral("RowHeightMin"));
}

int VemoGrid::FillStyle() const
{
    return d->flex->FillStyle();
}

void VemoGrid::setFillStyle(int value)
{
    d->flex->setFillStyle(value);
    d->changed(QStringLiteral("FillStyle"));
}

int VemoGrid::CellAlignment() const
{
    return d->flex->CellAlignment();
}

void VemoGrid::setCellAlignment(int value)
{
    d->flex->setCellAlignment(value);
    d->changed(QStringLiteral("CellAlignment"));
}

OleColor VemoGrid::CellBackColor() const
{
    return d->flex->CellBackColor();
}

void VemoGrid::setCellBackColor(OleColor value)
{
    d->flex->setCellBackColor(value);
    d->changed(QStringLiteral("CellBackColor"));
}

OleColor VemoGrid::CellForeColor() const
{
    return d->flex->CellForeColor();
}

void VemoGrid::setCellForeColor(OleColor value)
{
    d->flex->setCellForeColor(value);
    d->changed(QStringLiteral("CellForeColor"));
}

bool VemoGrid::CellFontBold() const
{
    return d->flex->CellFontBold();
}

void VemoGrid::setCellFontBold(bool value)
{
    d->flex->setCellFontBold(value);
    d->changed(QStringLiteral("CellFontBold"));
}

bool VemoGrid::CellFontItalic() const
{
    return d->flex->CellFontItalic();
}

void VemoGrid::setCellFontItalic(bool value)
{
    d->flex->setCellFontItalic(value);
    d->changed(QStringLiteral("CellFontItalic"));
}

float VemoGrid::CellFontWidth() const
{
    return d->flex->CellFontWidth();
}

void VemoGrid::setCellFontWidth(float value)
{
    d->flex->setCellFontWidth(value);
    d->changed(QStringLiteral("CellFontWidth"));
}

float VemoGrid::CellFontSize() const
{
    return d->flex->CellFontSize();
}

void VemoGrid::setCellFontSize(float value)
{
    d->flex->setCellFontSize(value);
    d->changed(QStringLiteral("CellFontSize"));
}

QString VemoGrid::CellFontName() const
{
    return d->flex->CellFontName();
}

void VemoGrid::setCellFontName(const QString& value)
{
    d->flex->setCellFontName(value);
    d->changed(QStringLiteral("CellFontName"));
}

QPixmap VemoGrid::CellPicture() const
{
    return d->flex->CellPicture();
}

void VemoGrid::setCellPicture(const QPixmap& value)
{
    d->flex->setCellPicture(value);
    d->changed(QStringLiteral("CellPicture"));
}

int VemoGrid::CellPictureAlignment() const
{
    return d->flex->CellPictureAlignment();
}

void VemoGrid::setCellPictureAlignment(int value)
{
    d->flex->setCellPictureAlignment(value);
    d->changed(QStringLiteral("CellPictureAlignment"));
}

int VemoGrid::FocusRect() const
{
    return d->flex->FocusRect();
}

void VemoGrid::setFocusRect(int value)
{
    d->flex->setFocusRect(value);
    d->changed(QStringLiteral("FocusRect"));
}

int VemoGrid::HighLight() const
{
    return d->flex->HighLight();
}

void VemoGrid::setHighLight(int value)
{
    d->flex->setHighLight(value);
    d->changed(QStringLiteral("HighLight"));
}

int VemoGrid::AllowUserResizing() const
{
    return d->flex->AllowUserResizing();
}

void VemoGrid::setAllowUserResizing(int value)
{
    d->flex->setAllowUserResizing(value);
    d->changed(QStringLiteral("AllowUserResizing"));
}

bool VemoGrid::AllowBigSelection() const
{
    return d->flex->AllowBigSelection();
}

void VemoGrid::setAllowBigSelection(bool value)
{
    d->flex->setAllowBigSelection(value);
    d->changed(QStringLiteral("AllowBigSelection"));
}

int VemoGrid::PictureType() const
{
    return d->flex->PictureType();
}

void VemoGrid::setPictureType(int value)
{
    d->flex->setPictureType(value);
    d->changed(QStringLiteral("PictureType"));
}

OleColor VemoGrid::ForeColor() const
{
    return d->flex->ForeColor();
}

void VemoGrid::setForeColor(OleColor value)
{
    d->flex->setForeColor(value);
    d->changed(QStringLiteral("ForeColor"));
}

OleColor VemoGrid::BackColorBkg() const
{
    return d->flex->BackColorBkg();
}

void VemoGrid::setBackColorBkg(OleColor value)
{
    d->flex->setBackColorBkg(value);
    d->changed(QStringLiteral("BackColorBkg"));
}

OleColor VemoGrid::BackColorFixed() const
{
    return d->flex->BackColorFixed();
}

void VemoGrid::setBackColorFixed(OleColor value)
{
    d->flex->setBackColorFixed(value);
    d->changed(QStringLiteral("BackColorFixed"));
}

OleColor VemoGrid::BackColorSel() const
{
    return d->flex->BackColorSel();
}

void VemoGrid::setBackColorSel(OleColor value)
{
    d->flex->setBackColorSel(value);
    d->changed(QStringLiteral("BackColorSel"));
}

OleColor VemoGrid::ForeColorSel() const
{
    return d->flex->ForeColorSel();
}

void VemoGrid::setForeColorSel(OleColor value)
{
    d->flex->setForeColorSel(value);
    d->changed(QStringLiteral("ForeColorSel"));
}

OleColor VemoGrid::ForeColorFixed() const
{
    return d->flex->ForeColorFixed();
}

void VemoGrid::setForeColorFixed(OleColor value)
{
    d->flex->setForeColorFixed(value);
    d->changed(QStringLiteral("ForeColorFixed"));
}

OleColor VemoGrid::GridColor() const
{
    return d->flex->GridColor();
}

void VemoGrid::setGridColor(OleColor value)
{
    d->flex->setGridColor(value);
    d->changed(QStringLiteral("GridColor"));
}

OleColor VemoGrid::GridColorFixed() const
{
    return d->flex->GridColorFixed();
}

void VemoGrid::setGridColorFixed(OleColor value)
{
    d->flex->setGridColorFixed(value);
    d->changed(QStringLiteral("GridColorFixed"));
}

int VemoGrid::GridLines() const
{
    return d->flex->GridLines();
}

void VemoGrid::setGridLines(int value)
{
    d->flex->setGridLines(value);
    d->changed(QStringLiteral("GridLines"));
}

int VemoGrid::GridLinesFixed() const
{
    return d->flex->GridLinesFixed();
}

void VemoGrid::setGridLinesFixed(int value)
{
    d->flex->setGridLinesFixed(value);
    d->changed(QStringLiteral("GridLinesFixed"));
}

int VemoGrid::GridLineWidth() const
{
    return d->flex->GridLineWidth();
}

void VemoGrid::setGridLineWidth(int value)
{
    d->flex->setGridLineWidth(value);
    d->changed(QStringLiteral("GridLineWidth"));
}

QFont VemoGrid::FontFixed() const
{
    return d->flex->FontFixed();
}

void VemoGrid::setFontFixed(const QFont& value)
{
    d->flex->setFontFixed(value);
    d->changed(QStringLiteral("FontFixed"));
}

int VemoGrid::MergeCells() const
{
    return d->flex->MergeCells();
}

void VemoGrid::setMergeCells(int value)
{
    d->flex->setMergeCells(value);
    d->changed(QStringLiteral("MergeCells"));
}

int VemoGrid::SelectionMode() const
{
    return d->flex->SelectionMode();
}

void VemoGrid::setSelectionMode(int value)
{
    d->flex->setSelectionMode(value);
    d->changed(QStringLiteral("SelectionMode"));
}

bool VemoGrid::WordWrap() const
{
    return d->flex->WordWrap();
}

void VemoGrid::setWordWrap(bool value)
{
    d->flex->setWordWrap(value);
    d->changed(QStringLiteral("WordWrap"));
}

int VemoGrid::TextStyle() const
{
    return d->flex->TextStyle();
}

void VemoGrid::setTextStyle(int value)
{
    d->flex->setTextStyle(value);
    d->changed(QStringLiteral("TextStyle"));
}

int VemoGrid::TextStyleFixed() const
{
    return d->flex->TextStyleFixed();
}

void VemoGrid::setTextStyleFixed(int value)
{
    d->flex->setTextStyleFixed(value);
    d->changed(QStringLiteral("TextStyleFixed"));
}

int VemoGrid::ScrollBars() const
{
    return d->flex->ScrollBars();
}

void VemoGrid::setScrollBars(int value)
{
    d->flex->setScrollBars(value);
    d->changed(QStringLiteral("ScrollBars"));
}

bool VemoGrid::ScrollTrack() const
{
    return d->flex->ScrollTrack();
}

void VemoGrid::setScrollTrack(bool value)
{
    d->flex->setScrollTrack(value);
    d->changed(QStringLiteral("ScrollTrack"));
}

int VemoGrid::RowHeight(int RowIndex) const
{
    return d->flex->RowHeight(RowIndex);
}

void VemoGrid::setRowHeight(int RowIndex, int value)
{
    d->flex->setRowHeight(RowIndex, value);
    d->changed(QStringLiteral("RowHeight"));
}

int VemoGrid::ColAlignment(int Index) const
{
    return d->flex->ColAlignment(Index);
}

void VemoGrid::setColAlignment(int Index, int value)
{
    d->flex->setColAlignment(Index, value);
    d->changed(QStringLiteral("ColAlignment"));
}

int VemoGrid::ColAlignmentFixed(int Index) const
{
    return d->flex->ColAlignmentFixed(Index);
}

void VemoGrid::setColAlignmentFixed(int Index, int value)
{
    d->flex->setColAlignmentFixed(Index, value);
    d->changed(QStringLiteral("ColAlignmentFixed"));
}

QString VemoGrid::TextArray(int Index) const
{
    return d->flex->TextArray(Index);
}

void VemoGrid::setTextArray(int Index, const QString& value)
{
    d->flex->setTextArray(Index, value);
    d->changed(QStringLiteral("TextArray"));
}

bool VemoGrid::MergeRow(int Row) const
{
    return d->flex->MergeRow(Row);
}

void VemoGrid::setMergeRow(int Row, bool value)
{
    d->flex->setMergeRow(Row, value);
    d->changed(QStringLiteral("MergeRow"));
}

bool VemoGrid::MergeCol(int Col) const
{
    return d->flex->MergeCol(Col);
}

void VemoGrid::setMergeCol(int Col, bool value)
{
    d->flex->setMergeCol(Col, value);
    d->changed(QStringLiteral("MergeCol"));
}

int VemoGrid::CellLeft()
{
    return d->flex->CellLeft();
}

int VemoGrid::CellTop()
{
    return d->flex->CellTop();
}

int VemoGrid::CellWidth()
{
    return d->flex->CellWidth();
}

int VemoGrid::CellHeight()
{
    return d->flex->CellHeight();
}

QPixmap VemoGrid::Picture() const
{
    return d->flex->Picture();
}

int VemoGrid::MouseRow() const
{
    return d->flex->MouseRow();
}

int VemoGrid::MouseCol() const
{
    return d->flex->MouseCol();
}

bool VemoGrid::ColIsVisible(int Index) const
{
    return d->flex->ColIsVisible(Index);
}

bool VemoGrid::RowIsVisible(int Index) const
{
    return d->flex->RowIsVisible(Index);
}

int VemoGrid::ColPos(int Index) const
{
    return d->flex->ColPos(Index);
}

int VemoGrid::RowPos(int Index) const
{
    return d->flex->RowPos(Index);
}

void VemoGrid::setColPosition(int Index, int to)
{
    d->flex->setColPosition(Index, to);
    d->changed(QStringLiteral("ColPosition"));
}

void VemoGrid::setRowPosition(int Index, int to)
{
    d->flex->setRowPosition(Index, to);
    d->changed(QStringLiteral("RowPosition"));
}

bool VemoGrid::CellFontUnderLine() const
{
    return d->flex->CellFontUnderline();
}

void VemoGrid::setCellFontUnderLine(bool underline)
{
    d->flex->setCellFontUnderline(underline);
    d->changed(QStringLiteral("CellFontUnderLine"));
}

QFont VemoGrid::Font() const
{
    return d->flex->Font();
}

} // namespace VemoGridLib
