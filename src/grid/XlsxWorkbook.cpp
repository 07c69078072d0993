// SPDX-License-Identifier: MIT
#include "grid/XlsxWorkbook_p.h"

#include "common/VemoError.h"

#include <QFile>
#include <QUrl>

#include <xlsxwriter.h>

#include <utility>

namespace VemoGridLib {

XlsxWorkbook::XlsxWorkbook(const QString& fileName)
    : m_fileName(fileName)
{
    // libxlsxwriter opens the file only in workbook_close, after every row; trying it here
    // reports a bad path before the export walks the grid.
    if (QFile probe(fileName); !probe.open(QIODevice::WriteOnly))
        throw VemoError(
            VemoError::PathFileAccessError,
            QStringLiteral("Cannot write \"%1\": %2").arg(fileName, probe.errorString()));
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    // Rows go to temporary files while the sheet is written; their size is not limited to 4 GB.
    options.use_zip64 = LXW_TRUE;
    m_book = workbook_new_opt(QFile::encodeName(fileName).constData(), &options);
    if (m_book)
        m_sheet = workbook_add_worksheet(m_book, nullptr);
    if (!m_sheet) {
        // The worksheet's temporary file could not be made.
        if (m_book)
            lxw_workbook_free(m_book);
        throw VemoError(VemoError::PathFileAccessError,
                        QStringLiteral("Cannot write \"%1\": no temporary file").arg(fileName));
    }
}

XlsxWorkbook::~XlsxWorkbook()
{
    // Unclosed after a failure: the memory is freed and nothing more is written.
    if (m_book)
        lxw_workbook_free(m_book);
}

void XlsxWorkbook::check(int error) const
{
    if (error != LXW_NO_ERROR)
        throw VemoError(VemoError::PathFileAccessError,
                        QStringLiteral("Cannot write \"%1\": %2")
                            .arg(m_fileName, QString::fromUtf8(lxw_strerror(lxw_error(error)))));
}

const char* XlsxWorkbook::utf8(QStringView text)
{
    // One buffer for every cell: the library copies the text before the next call.
    m_utf8.resize(m_encoder.requiredSpace(text.size()) + 1);
    *m_encoder.appendToBuffer(m_utf8.data(), text) = '\0';
    return m_utf8.constData();
}

lxw_format* XlsxWorkbook::format(const QString& numberFormat, bool bold)
{
    // The sheet's default look needs no format of its own.
    if (numberFormat.isEmpty() && !bold)
        return nullptr;
    const QString key = (bold ? QLatin1Char('b') : QLatin1Char('-')) + numberFormat;
    lxw_format*& format = m_formats[key];
    if (!format) {
        format = workbook_add_format(m_book);
        if (!numberFormat.isEmpty())
            format_set_num_format(format, numberFormat.toUtf8().constData());
        if (bold)
            format_set_bold(format);
    }
    return format;
}

void XlsxWorkbook::setColumnWidth(int col, double characters)
{
    lxw_row_col_options hidden{};
    hidden.hidden = characters <= 0;
    check(worksheet_set_column_opt(m_sheet, lxw_col_t(col), lxw_col_t(col), characters, nullptr,
                                   &hidden));
}

void XlsxWorkbook::freezeRows(int rows)
{
    worksheet_freeze_panes(m_sheet, lxw_row_t(rows), 0);
}

void XlsxWorkbook::writeText(int row, int col, QStringView text, lxw_format* format)
{
    if (text.isEmpty())
        return;
    // A longer text is cut, as a spreadsheet cuts a pasted one, never inside a surrogate pair.
    if (text.size() > MaxCellText)
        text = text.first(MaxCellText - (text.at(MaxCellText - 1).isHighSurrogate() ? 1 : 0));
    check(worksheet_write_string(m_sheet, lxw_row_t(row), lxw_col_t(col), utf8(text), format));
}

void XlsxWorkbook::writeNumber(int row, int col, double value, lxw_format* format)
{
    check(worksheet_write_number(m_sheet, lxw_row_t(row), lxw_col_t(col), value, format));
}

void XlsxWorkbook::writeBoolean(int row, int col, bool value)
{
    check(worksheet_write_boolean(m_sheet, lxw_row_t(row), lxw_col_t(col), value, nullptr));
}

bool XlsxWorkbook::writeLink(int row, int col, QStringView url)
{
    // A text with no scheme would become a link to a file beside the workbook. Past the
    // sheet's limit the library would print a warning for every further link.
    if (m_links == MaxLinks || QUrl(url.toString()).scheme().size() < 2)
        return false;
    if (!m_linkFormat) {
        // The look of a followed link; the library's own default is looked up anew per link.
        m_linkFormat = workbook_add_format(m_book);
        format_set_underline(m_linkFormat, LXW_UNDERLINE_SINGLE);
        format_set_font_color(m_linkFormat, LXW_COLOR_BLUE);
    }
    const char* const address = utf8(url);
    if (worksheet_write_url_opt(m_sheet, lxw_row_t(row), lxw_col_t(col), address, m_linkFormat,
                                address, nullptr) != LXW_NO_ERROR)
        return false;
    ++m_links;
    return true;
}

void XlsxWorkbook::close()
{
    lxw_workbook* const book = std::exchange(m_book, nullptr);
    check(workbook_close(book));
}

} // namespace VemoGridLib
