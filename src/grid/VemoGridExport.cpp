// SPDX-License-Identifier: MIT
// VemoGrid's export to an Excel worksheet.
#include "grid/VemoGrid_p.h"


#include "vb/VbConversion.h"
#include "vb/VbStrings.h"

#include <optional>

namespace VemoGridLib {

namespace {

// The writer takes `Row` as a 16-bit signed number: a later grid row cannot be addressed.
constexpr int LastSheetRow = 32767;
// The writer takes `Col` as one byte, and the data loop's column counter is one byte as well.
constexpr int LastByteColumn = 255;

// How a data column's cells are written, by column type (an `AutoAdd` column first of all).
struct ColumnKind
{
    bool autoAdd = false;
    VemoGridColType type = eTextBox;
};

/// A cell's text as a QString sharing the cell's characters: the cell store is not touched while
/// one cell is written.
QString borrowed(QStringView text)
{
    return QString::fromRawData(text.data(), text.size());
}

/// VB's Trim, sharing the cell's characters.
QString trimmed(QStringView text)
{
    return borrowed(vb::TrimmedView(text));
}

void writeDataCell(ExcelFile& excel, short row, uchar col, QStringView t, ColumnKind kind,
                   vb::VbLocale locale)
{
    if (kind.autoAdd) {
        double value = 0;
        excel.EWriteInteger(row, col,
                            vb::ReadPlainDecimal(t, value) ? vb::CLng(value)
                                                           : vb::CLng(borrowed(t), locale));
        return;
    }
    switch (kind.type) {
    case eCheckBox:
        excel.EWriteString(row, col, t == QStringView(u".") ? u"True" : u"False");
        return;
    case eLong: {
        QString value = trimmed(t);
        // A plain decimal reads its thousands separators as the removal below would leave it.
        if (double number = 0; vb::ReadPlainDecimal(value, number)) {
            excel.EWriteInteger(row, col, vb::CLng(number));
            return;
        }
        if (value.contains(QLatin1Char(',')))
            value.remove(QLatin1Char(','));
        if (const std::optional<double> number = vb::NumericValue(value, locale))
            excel.EWriteInteger(row, col, vb::CLng(*number));
        else if (!value.isEmpty())
            excel.EWriteString(row, col, value);
        return;
    }
    case eCurrency:
    case eNumeric: {
        const QString value = trimmed(t);
        if (const std::optional<double> number = vb::NumericValue(value, locale))
            excel.EWriteFloat(row, col, *number);
        else
            excel.EWriteString(row, col, value);
        return;
    }
    default:
        excel.EWriteString(row, col, t);
        return;
    }
}

} // namespace

void VemoGrid::ExportToExcel(const QString& FileName)
{
    // The export runs with errors ignored: a failing statement is skipped on its own.
    if (!ignoringErrors([&] {
            if (!d->excel)
                d->excel = std::make_unique<ExcelFile>();
        }))
        return;
    ExcelFile& excel = *d->excel;
    // A file that cannot be opened makes every later write and the close fail with no effect,
    // so stopping here changes nothing but the time spent.
    if (!ignoringErrors([&] { excel.OpenFile(FileName); }))
        return;

    const FlexGrid& flex = *d->flex;
    const FlexGridHosting& cells = d->cells;
    const int rows = flex.Rows();
    const int cols = flex.Cols();
    const int fixedRows = flex.FixedRows();
    // The VB conversions read the user locale from the environment on every call; one export
    // runs in one locale.
    const vb::VbLocale locale = vb::userLocale();

    for (int r = 0; r < fixedRows && r + 1 <= LastSheetRow; ++r) {
        for (int c = 1; c < cols && c <= LastByteColumn; ++c)
            ignoringErrors(
                [&] { excel.EWriteString(short(r + 1), uchar(c), cells.text(r, c)); });
    }

    // With more than 256 columns the one-byte counter cannot hold the loop bound: the VB loop
    // fails before its first pass and no data is written.
    if (cols - 1 <= LastByteColumn) {
        for (int c = 1; c < cols; ++c) {
            ColumnKind kind;
            // A column without a `Column` object (design time) keeps the defaults: plain text.
            ignoringErrors([&] { kind.autoAdd = d->column(c)->AutoAdd(); });
            ignoringErrors([&] { kind.type = d->typeOf(c); });
            for (int r = fixedRows; r < rows && r + 1 <= LastSheetRow; ++r) {
                ignoringErrors([&] {
                    writeDataCell(excel, short(r + 1), uchar(c), cells.text(r, c), kind,
                                  locale);
                });
            }
        }
    }

    ignoringErrors([&] { excel.CloseFile(); });
}

} // namespace VemoGridLib
