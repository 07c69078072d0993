// SPDX-License-Identifier: MIT
// VemoGrid's row operations, typed cell writes, the marked row and the version.
#include "grid/VemoGrid_p.h"


#include "common/Messages.h"
#include "vb/VbDateTime.h"
#include "vb/VbFormat.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace VemoGridLib {

namespace {

const QString CheckedMarker = QStringLiteral(".");
const QString UncheckedMarker = QStringLiteral("`");
constexpr OleColor HyperlinkColour = 0xFF0000;

/// A whole number's decimal text as CStr writes it, held without a QString's allocation: the
/// number an `AutoAdd` column gets for every row added.
class DecimalText
{
public:
    explicit DecimalText(int value)
    {
        std::array<char, MaxLength> narrow{};
        m_length = std::size_t(std::to_chars(narrow.data(), narrow.data() + MaxLength, value).ptr -
                               narrow.data());
        std::copy_n(narrow.begin(), m_length, m_units.begin());
    }

    QStringView view() const { return QStringView(m_units.data(), qsizetype(m_length)); }

private:
    static constexpr std::size_t MaxLength = 12;
    std::array<char16_t, MaxLength> m_units{};
    std::size_t m_length = 0;
};

} // namespace

bool VemoGridPrivate::rowIsEmpty(int row) const
{
    for (int c = flex->FixedCols(); c < flex->Cols(); ++c) {
        const QStringView text = cells.text(row, c);
        const bool filled = typeOf(c) == eCheckBox ? text == CheckedMarker : !text.isEmpty();
        if (filled)
            return false;
    }
    return true;
}

void VemoGridPrivate::writeChecked(int row, int col, bool checked)
{
    {
        const auto suppressed = suppressEventsInScope();
        flex->setTextMatrix(row, col, checked ? CheckedMarker : UncheckedMarker);
    }
    drawCheckBoxes(col, row);
}

// ---- adding and removing rows ---------------------------------------------------------------

void VemoGrid::AddItem(const QString& Item, int Index)
{
    d->commitEdit();
    // A grid without rows has no current row to be empty.
    const int current = d->flex->Row();
    if (current < d->flex->Rows() && d->rowIsEmpty(current) && !d->nullLine) {
        showMessage(MessageId::RefusedEmptyLine);
        return;
    }
    // One pass for the whole addition: the hosted grid lays out its scroll bars once, at the end.
    const BulkPass pass(*d, d->flex->Cols());
    int newRow = 0;
    if (Index < 1) {
        d->flex->AddItem(Item);
        newRow = d->flex->Rows() - 1;
    } else {
        d->flex->AddItem(Item, Index);
        newRow = Index;
    }
    for (int c = d->flex->FixedCols(); c < d->flex->Cols(); ++c) {
        const VemoGridLib::Column* const column = d->columnOrNull(c);
        if (!column)
            continue;
        if (column->colType() == eCheckBox) {
            // The check-box pass for this one cell (none at design time).
            if (d->userMode)
                d->drawCheckBox(newRow, c);
        } else if (column->AutoAdd() && d->cells.text(newRow, c).isEmpty()) {
            d->cells.setText(newRow, c, DecimalText(d->runningNumber).view());
            ++d->runningNumber;
        }
    }
    d->colourRows(newRow);
    d->moveHostedCell(newRow, d->flex->Col());
    d->redisplayCurrentCell();
}

void VemoGrid::RemoveItem(int Index)
{
    // The open edit lands in its cell before the current cell moves to the marker column.
    d->commitEdit();
    int row = d->markedRow;
    if (Index != 0) {
        d->moveHostedCell(d->flex->Row(), 0);
        if (d->markedRow >= d->flex->FixedRows())
            d->flex->setCellPicture(QPixmap());
        row = Index;
    }
    if (row < d->flex->FixedRows())
        return;
    if (d->flex->Rows() == d->flex->FixedRows() + 1) {
        Clear();
        return;
    }
    const BulkPass pass(*d, qint64(d->flex->Rows() - row) * d->flex->Cols());
    d->removeSortMark();
    d->flex->RemoveItem(row);
    d->colourRows(row);
    d->markedRow = 0;
    const int current = row < d->flex->Rows() ? row : d->flex->Rows() - 1;
    d->moveHostedCell(current, d->flex->Col());
    d->redisplayCurrentCell();
}

void VemoGrid::Clear()
{
    // Clear runs with errors ignored: each step on its own.
    FlexGrid* const flex = d->flex;
    ignoringErrors([this] { d->commitEdit(); });
    const BulkPass pass(*d, qint64(flex->Rows()) * flex->Cols());
    ignoringErrors([this] { d->removeSortMark(); });
    const QString format = flex->FormatString();
    const int fixedRows = flex->FixedRows();
    const int fixedCols = flex->FixedCols();
    std::vector<int> widths;
    for (int c = 0; c < flex->Cols(); ++c)
        widths.push_back(flex->ColWidth(c));
    ignoringErrors([flex] { flex->Clear(); });
    ignoringErrors([flex, &format] { flex->setFormatString(format); });
    ignoringErrors([this] { d->rewriteSetupHeaders(); });
    for (int c = 0; c < int(widths.size()); ++c)
        ignoringErrors([flex, c, &widths] { flex->setColWidth(c, widths[std::size_t(c)]); });
    ignoringErrors([flex, fixedCols] { flex->setFixedCols(fixedCols); });
    ignoringErrors([flex, fixedRows] { flex->setFixedRows(fixedRows); });
    ignoringErrors([flex, fixedRows] { flex->setRows(fixedRows + 1); });
    ignoringErrors([this, fixedRows] { d->moveHostedCell(fixedRows, d->flex->Col()); });
    ignoringErrors([this] { d->drawCheckBoxes(-1, -1); });
    ignoringErrors([this] { d->colourRows(-1); });
    d->markedRow = 0;
    ignoringErrors([this] { d->redisplayCurrentCell(); });
}

void VemoGrid::ClearStructure()
{
    d->flex->ClearStructure();
}

int VemoGrid::Selected() const
{
    return d->markedRow;
}

QVariant VemoGrid::Version() const
{
    return QStringLiteral(VEMOGRIDLIB_VERSION_STRING);
}

// ---- typed cell text --------------------------------------------------------------------------

QString VemoGrid::TextMatrix(int Row, int Col) const
{
    const QString text = d->flex->TextMatrix(Row, Col);
    if (d->typeOf(Col) != eCheckBox)
        return text;
    return text == CheckedMarker ? QStringLiteral("True") : QStringLiteral("False");
}

void VemoGrid::setTextMatrix(int Row, int Col, const QString& value)
{
    d->writeTyped(Row, Col, value);
    d->editing.cellWritten(Row, Col);
}

void VemoGridPrivate::writeTyped(int Row, int Col, const QString& value)
{
    VemoGridLib::Column* const column = this->column(Col);
    switch (column->colType()) {
    case eCheckBox:
        if (value == QLatin1String("0") || value == QLatin1String("False"))
            writeChecked(Row, Col, false);
        else if (value == QLatin1String("-1") || value == QLatin1String("True"))
            writeChecked(Row, Col, true);
        return;
    case eCalendar:
        if (!vb::IsDate(value))
            return;
        flex->setTextMatrix(Row, Col,
                            column->FormatString().isEmpty()
                                ? value
                                : vb::Format(vb::CDate(value), column->FormatString()));
        return;
    case ehyperlink: {
        const auto suppressed = suppressEventsInScope();
        flex->setRow(Row);
        flex->setCol(Col);
        flex->setCellFontUnderline(true);
        flex->setCellForeColor(HyperlinkColour);
        flex->setText(value);
        return;
    }
    default:
        flex->setTextMatrix(Row, Col, value);
    }
}

QString VemoGrid::Text() const
{
    return TextMatrix(d->flex->Row(), d->flex->Col());
}

void VemoGrid::setText(const QString& value)
{
    setTextMatrix(d->flex->Row(), d->flex->Col(), value);
}

bool VemoGrid::cgChecked(int Row, int Col) const
{
    return d->flex->TextMatrix(Row, Col) == CheckedMarker;
}

void VemoGrid::setcgChecked(int Row, int Col, bool checked)
{
    d->writeChecked(Row, Col, checked);
    d->editing.cellWritten(Row, Col);
}

} // namespace VemoGridLib
