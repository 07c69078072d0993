// SPDX-License-Identifier: MIT
#include "grid/ExcelFile.h"

#include "common/Locale.h"
#include "common/VemoError.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <optional>

namespace VemoGridLib {

namespace {

using Bof = std::array<uchar, 8>;
using Eof = std::array<uchar, 4>;
using LabelHeader = std::array<uchar, 12>;
using IntegerRecord = std::array<uchar, 13>;
using NumberRecord = std::array<uchar, 19>;

// Document type 10 decimal, not BIFF2's 0x10 worksheet type: deliberately, as files written by the
// older control have it.
constexpr Bof BofTemplate = {0x09, 0x00, 0x04, 0x00, 0x02, 0x00, 0x0A, 0x00};
constexpr Eof EofTemplate = {0x0A, 0x00, 0x00, 0x00};
constexpr LabelHeader LabelTemplate = {0x04, 0x00, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
constexpr IntegerRecord IntegerTemplate = {0x02, 0x00, 0x09, 0x00, 0, 0, 0, 0, 0, 0, 0, 0, 0};
constexpr NumberRecord NumberTemplate = {0x03, 0x00, 0x0F, 0x00, 0, 0, 0, 0, 0, 0,
                                         0,    0,    0,    0,    0, 0, 0, 0, 0};

constexpr qsizetype RowOffset = 4;
constexpr qsizetype ColOffset = 6;
constexpr qsizetype ValueOffset = 11;
constexpr qsizetype LabelLengthOffset = 2;
constexpr qsizetype LabelTextLengthOffset = 11;
constexpr int LabelFixedLength = 8;
constexpr int ByteMax = 255;
constexpr int WordMax = 65535;

// VB assigns each byte of a record separately, so a value outside a byte's range is VB's
// Overflow error: for a 16-bit field that means outside 0..65535, for a byte outside 0..255.
quint16 checkedWord(int value)
{
    if (value < 0 || value > WordMax)
        throw VemoError::overflow();
    return quint16(value);
}

uchar checkedByte(int value)
{
    if (value < 0 || value > ByteMax)
        throw VemoError::overflow();
    return uchar(value);
}

// The row and column fields are at the same offsets in every cell record.
template <std::size_t N>
void setCell(std::array<uchar, N>& record, short Row, unsigned char Col)
{
    const quint16 row = checkedWord(int(Row) - 1);
    const uchar col = checkedByte(int(Col) - 1);
    qToLittleEndian(row, record.data() + RowOffset);
    record[ColOffset] = col;
}

} // namespace

struct ExcelFile::Private
{
    /// Records are gathered here and reach the file in blocks: a write call per record costs
    /// more than building the record.
    static constexpr qsizetype BufferSize = 64 * 1024;

    std::optional<QFile> file;
    std::unique_ptr<char[]> pending = std::make_unique_for_overwrite<char[]>(BufferSize);
    qsizetype pendingSize = 0;
    /// The ANSI code page of the texts, fixed when the file is opened.
    int codePage = 1252;
    LabelHeader label = LabelTemplate;
    IntegerRecord integer = IntegerTemplate;
    NumberRecord number = NumberTemplate;

    void checkOpen() const
    {
        if (!file)
            throw VemoError::badFileNameOrNumber();
    }

    /// Writes the gathered records; false when the file took fewer bytes.
    bool flush()
    {
        const qint64 size = pendingSize;
        pendingSize = 0;
        return file->write(pending.get(), size) == size;
    }

    void append(const char* data, qsizetype size)
    {
        if (pendingSize + size > BufferSize && !flush())
            throw VemoError::deviceIoError();
        if (size > BufferSize) {
            if (file->write(data, size) != size)
                throw VemoError::deviceIoError();
            return;
        }
        std::memcpy(pending.get() + pendingSize, data, std::size_t(size));
        pendingSize += size;
    }

    template <std::size_t N>
    void writeRecord(const std::array<uchar, N>& record)
    {
        checkOpen();
        append(reinterpret_cast<const char*>(record.data()), qsizetype(N));
    }

    /// Closes the file with what has been written so far; false when that could not be saved.
    bool close()
    {
        const bool written = flush();
        const bool flushed = file->flush();
        file.reset();
        return written && flushed;
    }
};

ExcelFile::ExcelFile()
    : d(std::make_unique<Private>())
{}

ExcelFile::~ExcelFile()
{
    if (d->file)
        d->close();
}

void ExcelFile::OpenFile(const QString& FileName)
{
    if (d->file)
        d->close();
    d->codePage = ansiCodePage();
    QFile& file = d->file.emplace(FileName);
    // ReadWrite without Truncate: an existing longer file keeps its bytes past the new EOF.
    if (!file.open(QIODevice::ReadWrite)) {
        d->file.reset();
        throw VemoError::pathFileAccessError();
    }
    d->writeRecord(BofTemplate);
}

void ExcelFile::CloseFile()
{
    d->writeRecord(EofTemplate);
    // Gathered records reach the disk only now, so a full disk shows up here; the file is
    // closed either way.
    if (!d->close())
        throw VemoError::deviceIoError();
}

void ExcelFile::EWriteString(short Row, unsigned char Col, const QString& value)
{
    EWriteString(Row, Col, QStringView(value));
}

void ExcelFile::EWriteString(short Row, unsigned char Col, QStringView value)
{
    d->checkOpen();
    // ASCII is the same in every supported code page; most cell texts take this path.
    const bool ascii =
        std::all_of(value.cbegin(), value.cend(), [](QChar c) { return c.unicode() < 0x80; });
    const QByteArray converted =
        ascii ? QByteArray() : toAnsiCodePage(value.toString(), d->codePage);
    const qsizetype byteCount = ascii ? value.size() : converted.size();
    const uchar textLength = checkedByte(int(std::min<qsizetype>(byteCount, ByteMax + 1)));
    const uchar recordLength = checkedByte(int(textLength) + LabelFixedLength);
    setCell(d->label, Row, Col);
    d->label[LabelLengthOffset] = recordLength;
    d->label[LabelTextLengthOffset] = textLength;

    d->writeRecord(d->label);
    if (!ascii) {
        d->append(converted.constData(), converted.size());
        return;
    }
    std::array<char, ByteMax> bytes;
    std::transform(value.cbegin(), value.cend(), bytes.begin(),
                   [](QChar c) { return char(c.unicode()); });
    d->append(bytes.data(), value.size());
}

void ExcelFile::EWriteInteger(short Row, unsigned char Col, int value)
{
    const quint16 word = checkedWord(value);
    setCell(d->integer, Row, Col);
    qToLittleEndian(word, d->integer.data() + ValueOffset);
    d->writeRecord(d->integer);
}

void ExcelFile::EWriteFloat(short Row, unsigned char Col, double value)
{
    setCell(d->number, Row, Col);
    qToLittleEndian(std::bit_cast<quint64>(value), d->number.data() + ValueOffset);
    d->writeRecord(d->number);
}

} // namespace VemoGridLib
