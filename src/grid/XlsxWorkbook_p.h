// SPDX-License-Identifier: MIT
// Internal: a one-sheet XLSX workbook written through libxlsxwriter. Not installed.
#pragma once

#include <QHash>
#include <QString>
#include <QStringEncoder>
#include <QStringView>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace VemoGridLib {

/// One worksheet written row by row in libxlsxwriter's constant-memory mode: a row is flushed
/// to disk when the next one starts, so cells go in row order, and column widths and frozen
/// panes are set before the first cell. Rows and columns are zero-based. Every failure throws
/// VemoError 75 "Path/File access error" with the file name and libxlsxwriter's reason; a
/// workbook destroyed without `close` leaves an incomplete file.
class XlsxWorkbook
{
public:
    /// The longest text a cell holds; longer texts are cut to it.
    static constexpr qsizetype MaxCellText = 32767;
    /// The most links a sheet holds; later ones are written as text.
    static constexpr int MaxLinks = 65530;

    /// Creates `fileName` (so a path that cannot be written fails before any row) and its sheet.
    explicit XlsxWorkbook(const QString& fileName);
    ~XlsxWorkbook();
    XlsxWorkbook(const XlsxWorkbook&) = delete;
    XlsxWorkbook& operator=(const XlsxWorkbook&) = delete;

    /// The cell format of a number format ("" = General), bold or not; made once per pair; none
    /// for General, not bold.
    lxw_format* format(const QString& numberFormat, bool bold = false);

    /// Width of column `col` in the sheet's character units; 0 hides it.
    void setColumnWidth(int col, double characters);
    /// Keeps the first `rows` rows in view while scrolling.
    void freezeRows(int rows);

    void writeText(int row, int col, QStringView text, lxw_format* format = nullptr);
    void writeNumber(int row, int col, double value, lxw_format* format = nullptr);
    void writeBoolean(int row, int col, bool value);
    /// A link to `url` showing `url` itself; false (nothing written) when `url` has no scheme
    /// ("https:", "mailto:"), the sheet has `MaxLinks` links or refuses this one (too long).
    bool writeLink(int row, int col, QStringView url);

    /// Writes the file; throws when it cannot.
    void close();

private:
    void check(int error) const;
    /// `text` in UTF-8, valid until the next call.
    const char* utf8(QStringView text);

    QString m_fileName;
    lxw_workbook* m_book = nullptr;
    lxw_worksheet* m_sheet = nullptr;
    QHash<QString, lxw_format*> m_formats;
    lxw_format* m_linkFormat = nullptr;
    int m_links = 0;
    QStringEncoder m_encoder{QStringEncoder::Utf8};
    QByteArray m_utf8;
};

} // namespace VemoGridLib
