#include "grid/ExcelFile.h"

#include "common/Locale.h"
#include "common/VemoError.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <bit>
#include <optional>

namespace VemoGridLib {

namespace {

using Bof = std::array<uchar, 8>;
using Eof = std::array<uchar, 4>;
using LabelHeader = std::array<uchar, 12>;
using IntegerRecord = std::array<uchar, 13>;
using NumberRecord = std::array<uchar, 19>;

// The document type is 10 decimal, not BIFF2's 0x10 worksheet type: Part 1.8 keeps it exactly.
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
    std::optional<QFile> file;
    LabelHeader label = LabelTemplate;
    IntegerRecord integer = IntegerTemplate;
    NumberRecord number = NumberTemplate;

    QFile& openFile()
    {
        if (!file)
            throw VemoError::badFileNameOrNumber();
        return *file;
    }

    static void write(QFile& target, const char* data, qint64 size)
    {
        if (target.write(data, size) != size)
            throw VemoError::deviceIoError();
    }

    template <std::size_t N>
    void writeRecord(const std::array<uchar, N>& record)
    {
        write(openFile(), reinterpret_cast<const char*>(record.data()), qint64(N));
    }
};

ExcelFile::ExcelFile()
    : d(std::make_unique<Private>())
{}

ExcelFile::~ExcelFile() = default;

void ExcelFile::OpenFile(const QString& FileName)
{
    d->file.reset();
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
    // Buffered bytes reach the file only now, so a full disk shows up here.
    const bool flushed = d->file->flush();
    d->file.reset();
    if (!flushed)
        throw VemoError::deviceIoError();
}

void ExcelFile::EWriteString(short Row, unsigned char Col, const QString& value)
{
    const QByteArray text = toAnsiCodePage(value);
    const uchar textLength = checkedByte(int(text.size()));
    const uchar recordLength = checkedByte(int(text.size()) + LabelFixedLength);
    setCell(d->label, Row, Col);
    d->label[LabelLengthOffset] = recordLength;
    d->label[LabelTextLengthOffset] = textLength;

    d->writeRecord(d->label);
    Private::write(*d->file, text.constData(), text.size());
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
