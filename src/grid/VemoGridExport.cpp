// SPDX-License-Identifier: MIT
// VemoGrid's exports: an Excel (BIFF2) worksheet, an XLSX workbook and a CSV file.
#include "grid/VemoGrid_p.h"
#include "grid/XlsxWorkbook_p.h"

#include "vb/VbConversion.h"
#include "vb/VbDateTime.h"
#include "vb/VbFormatSyntax_p.h"
#include "vb/VbFormat_p.h"
#include "vb/VbStrings.h"

#include "common/VemoError.h"

#include <QFile>

#include <algorithm>
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

// The largest sheet of an XLSX workbook; the grid's rows and columns beyond it are left out.
constexpr int XlsxRows = 1048576;
constexpr int XlsxColumns = 16384;

/// How a data column goes to an XLSX sheet.
struct XlsxColumn
{
    enum Kind { Text, Number, Date, CheckBox, Link } kind = Text;
    lxw_format* format = nullptr;
};

/// The column's number format as the sheet writes it: its FormatString translated; without one
/// the whole numbers of a column of no decimals (as the text box shows them), else General.
QString xlsxNumberFormat(const Column& column, vb::VbLocale locale)
{
    if (!column.FormatString().isEmpty())
        return vb::detail::spreadsheetNumberFormat(column.FormatString(), locale);
    return column.DecimalLength() == 0 ? QStringLiteral("0") : QString();
}

XlsxColumn xlsxColumn(const Column* column, XlsxWorkbook& book, vb::VbLocale locale)
{
    // A column without a `Column` object (design time) is plain text.
    if (!column)
        return {};
    if (column->AutoAdd())
        return {XlsxColumn::Number, book.format(xlsxNumberFormat(*column, locale))};
    switch (column->colType()) {
    case eCurrency:
    case eNumeric:
    case eLong:
        return {XlsxColumn::Number, book.format(xlsxNumberFormat(*column, locale))};
    case eCalendar: {
        // The picker writes a date without a date format as yyyy-MM-dd.
        const QString format = column->FormatString();
        return {XlsxColumn::Date,
                book.format(vb::detail::isDateFormat(format)
                                ? vb::detail::spreadsheetDateFormat(format, locale)
                                : QStringLiteral("yyyy-mm-dd"))};
    }
    case eCheckBox:
        return {XlsxColumn::CheckBox};
    case ehyperlink:
        return {XlsxColumn::Link};
    default:
        return {};
    }
}

/// A number cell's value: a plain decimal directly, else VB's reading with the thousands
/// separators dropped (as the BIFF export reads a long).
std::optional<double> numberOf(QStringView text, vb::VbLocale locale)
{
    const QString value = trimmed(text);
    if (double number = 0; vb::ReadPlainDecimal(value, number))
        return number;
    if (value.isEmpty())
        return std::nullopt;
    return vb::NumericValue(QString(value).remove(QLatin1Char(',')), locale);
}

/// A date cell's day serial: yyyy-mm-dd, as the picker writes a date, read directly; any other
/// text by VB's date reading.
std::optional<double> dateOf(QStringView text, vb::VbLocale locale)
{
    const QStringView date = vb::TrimmedView(text);
    if (date.isEmpty())
        return std::nullopt;
    // The number of `count` digits from `from`, or -1.
    const auto number = [date](qsizetype from, qsizetype count) {
        int value = 0;
        for (const QChar c : date.sliced(from, count)) {
            if (c < u'0' || c > u'9')
                return -1;
            value = value * 10 + (c.unicode() - u'0');
        }
        return value;
    };
    if (date.size() == 10 && date[4] == u'-' && date[7] == u'-') {
        // Years below 1000 are left to VB's reading, which has its own rules for short years.
        if (const QDate iso(number(0, 4), number(5, 2), number(8, 2));
            iso.isValid() && iso.year() >= 1000)
            return double(QDate(1899, 12, 30).daysTo(iso));
    }
    try {
        return vb::DateToSerial(vb::CDate(date.toString(), locale));
    } catch (const VemoError&) { // no date
        return std::nullopt;
    }
}

void writeXlsxCell(XlsxWorkbook& book, int row, int col, QStringView text, const XlsxColumn& column,
                   vb::VbLocale locale)
{
    switch (column.kind) {
    case XlsxColumn::Number:
        if (const std::optional<double> number = numberOf(text, locale))
            return book.writeNumber(row, col, *number, column.format);
        break;
    case XlsxColumn::Date:
        if (const std::optional<double> serial = dateOf(text, locale))
            return book.writeNumber(row, col, *serial, column.format);
        break;
    case XlsxColumn::CheckBox:
        return book.writeBoolean(row, col, text == QStringView(u"."));
    case XlsxColumn::Link:
        if (text.isEmpty() || book.writeLink(row, col, text))
            return;
        break;
    case XlsxColumn::Text:
        break;
    }
    book.writeText(row, col, text);
}

/// Twips to the sheet's column width in characters. At 96 dpi a pixel is 15 twips; a column of
/// w characters (the default font's digit being 7 pixels wide) is 7w + 5 pixels wide from one
/// character up, 12w pixels below.
double twipsToCharacters(int twips)
{
    const double pixels = twips / 15.0;
    return pixels < 12 ? pixels / 12 : (pixels - 5) / 7;
}

/// Appends one CSV field, quoted (quotes doubled) when it holds a comma, quote, CR or LF.
void appendCsvField(QByteArray& out, QStringView text)
{
    const bool quoted = std::any_of(text.begin(), text.end(), [](QChar c) {
        return c == u',' || c == u'"' || c == u'\r' || c == u'\n';
    });
    if (!quoted) {
        out += text.toUtf8();
        return;
    }
    out += '"';
    out += text.toString().replace(QLatin1Char('"'), QLatin1String("\"\"")).toUtf8();
    out += '"';
}

} // namespace

void VemoGrid::ExportToXlsx(const QString& FileName)
{
    XlsxWorkbook book(FileName);
    const FlexGrid& flex = *d->flex;
    const int rows = std::min(flex.Rows(), XlsxRows);
    const int cols = std::min(flex.Cols(), XlsxColumns + 1);
    const int fixedRows = std::min(flex.FixedRows(), rows);
    const vb::VbLocale locale = vb::userLocale();

    // Widths, frozen panes and formats go first: constant-memory mode writes each row as soon
    // as the next begins.
    std::vector<XlsxColumn> columns(size_t(std::max(cols, 1)));
    for (int c = 1; c < cols; ++c) {
        // A never-set width (−1) keeps the sheet's default.
        if (const int twips = flex.ColWidth(c); twips >= 0)
            book.setColumnWidth(c - 1, twipsToCharacters(twips));
        columns[size_t(c)] = xlsxColumn(d->columnOrNull(c), book, locale);
    }
    if (fixedRows > 0)
        book.freezeRows(fixedRows);
    lxw_format* const header = book.format(QString(), true);

    const FlexGridHosting& cells = d->cells;
    for (int r = 0; r < rows; ++r) {
        for (int c = 1; c < cols; ++c) {
            if (r < fixedRows)
                book.writeText(r, c - 1, cells.text(r, c), header);
            else
                writeXlsxCell(book, r, c - 1, cells.text(r, c), columns[size_t(c)], locale);
        }
    }
    book.close();
}

void VemoGrid::ExportToCsv(const QString& FileName)
{
    QFile file(FileName);
    const auto fail = [&] {
        throw VemoError(
            VemoError::PathFileAccessError,
            QStringLiteral("Cannot write \"%1\": %2").arg(FileName, file.errorString()));
    };
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        fail();

    const FlexGrid& flex = *d->flex;
    const FlexGridHosting& cells = d->cells;
    const int rows = flex.Rows();
    const int cols = flex.Cols();
    const int fixedRows = flex.FixedRows();
    std::vector<bool> checkBoxes(size_t(std::max(cols, 1)));
    for (int c = 1; c < cols; ++c)
        checkBoxes[size_t(c)] = d->typeOf(c) == eCheckBox;

    // The byte order mark tells spreadsheets the file is UTF-8.
    QByteArray out("\xEF\xBB\xBF");
    for (int r = 0; r < rows; ++r) {
        for (int c = 1; c < cols; ++c) {
            if (c > 1)
                out += ',';
            const QStringView text = cells.text(r, c);
            if (r >= fixedRows && checkBoxes[size_t(c)])
                out += text == QStringView(u".") ? "TRUE" : "FALSE";
            else
                appendCsvField(out, text);
        }
        out += "\r\n";
        if (out.size() >= 1 << 16) {
            if (file.write(out) != out.size())
                fail();
            out.clear();
        }
    }
    if (file.write(out) != out.size() || !file.flush())
        fail();
}

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
