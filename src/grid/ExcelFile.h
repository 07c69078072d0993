// SPDX-License-Identifier: MIT
// The Excel version 2 worksheet (BIFF2) writer.
#pragma once

#include <VemoGridLib/VemoGridLibExport.h>

#include <QString>

#include <memory>

namespace VemoGridLib {

/// Writes a BIFF2 worksheet record by record: `OpenFile` writes the BOF record, each
/// `EWrite*` one cell record, `CloseFile` the EOF record. Rows and columns are one-based; the
/// records hold them zero-based. A refused record (bad row, column, value or text length) throws
/// VemoError and writes nothing. Records are gathered in memory and written in blocks, so a
/// write failure of the file (57) may show up a few records later, at the latest in `CloseFile`.
/// Destroying an open writer saves the records so far and closes the file without EOF.
class VEMOGRIDLIB_EXPORT ExcelFile
{
public:
    /// A writer with no open file.
    ExcelFile();
    /// Closes an open file as it stands (no EOF record), as VB does at teardown.
    ~ExcelFile();
    ExcelFile(const ExcelFile&) = delete;
    ExcelFile& operator=(const ExcelFile&) = delete;

    /// Opens `FileName` for binary read/write at offset 0 without truncating it (an
    /// existing longer file keeps its trailing bytes) and writes the BOF record. A file already
    /// open is closed first, without EOF. The ANSI code page of the texts is fixed here. Throws
    /// VemoError 75 "Path/File access error" when the file cannot be opened; the writer then has no
    /// open file.
    void OpenFile(const QString& FileName);
    /// Writes the EOF record and closes the file. Throws VemoError 52 "Bad file name or
    /// number" without an open file, 57 "Device I/O error" when the data cannot be written.
    void CloseFile();

    /// Writes a LABEL record of `value` converted to the system ANSI code page at
    /// one-based (`Row`, `Col`). Throws VemoError 6 "Overflow" when `Row` < 1, `Col` < 1 or the
    /// text has more than 247 bytes; 52 without an open file; 57 on a write failure.
    void EWriteString(short Row, unsigned char Col, const QString& value);
    /// The same for a view of the text, which the grid's export reads without a copy.
    void EWriteString(short Row, unsigned char Col, QStringView value);
    /// Writes an INTEGER record of `value` at one-based (`Row`, `Col`). Throws
    /// VemoError 6 "Overflow" when `value` is outside 0..65535, `Row` < 1 or `Col` < 1; 52
    /// without an open file; 57 on a write failure.
    void EWriteInteger(short Row, unsigned char Col, int value);
    /// Writes a NUMBER record of `value` (IEEE 754 double) at one-based (`Row`,
    /// `Col`). Throws VemoError 6 "Overflow" when `Row` < 1 or `Col` < 1; 52 without an open
    /// file; 57 on a write failure.
    void EWriteFloat(short Row, unsigned char Col, double value);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace VemoGridLib
