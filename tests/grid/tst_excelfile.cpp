// Part 1.8: the BIFF2 writer ExcelFile.
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/ExcelFile.h>

#include "PythonXlrd.h"
#include "VemoTestSupport.h"
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

#include <QTest>

#include <bit>
#include <climits>
#include <functional>
#include <optional>
#include <vector>

using namespace VemoGridLib;
using VemoTest::errorNumberOf;
using VemoTest::ScopedLocale;

namespace {

// Expected records are spelled field by field as Part 1.8's tables: record number, length, row,
// column, cell attributes, then the value (a LABEL: text length, text bytes).
const QByteArray Bof = QByteArray::fromHex("0900 0400 0200 0a00");
const QByteArray Eof = QByteArray::fromHex("0a00 0000");

constexpr qint32 OverflowNumber = 6;
constexpr qint32 BadFileNameOrNumber = 52;
constexpr qint32 DeviceIoError = 57;
constexpr qint32 PathFileAccessError = 75;

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

} // namespace

class tst_ExcelFile : public QObject
{
    Q_OBJECT

private slots:
    void openAndCloseWriteBofAndEof();
    void labelRecord_data();
    void labelRecord();
    void integerRecord_data();
    void integerRecord();
    void numberRecord_data();
    void numberRecord();
    void recordsFollowEachOther();
    void manyRecordsArriveInOrder();

    void labelOf247BytesAccepted();
    void labelTooLongRefused_data();
    void labelTooLongRefused();
    void integerOutOfRangeRefused_data();
    void integerOutOfRangeRefused();
    void cellOutsideSheetRefused_data();
    void cellOutsideSheetRefused();

    void existingLongerFileKeepsTrailingBytes();
    void textOutsideCodePageBecomesQuestionMark();
    void textInChineseCodePages_data();
    void textInChineseCodePages();

    void writeWithoutOpenFileThrows_data();
    void writeWithoutOpenFileThrows();
    void writeAfterCloseFileThrows();
    void openFileThatCannotBeOpenedThrows_data();
    void openFileThatCannotBeOpenedThrows();
    void writeFailureThrows();
    void destructorClosesWithoutEof();
    void reopenClosesFirstFileWithoutEof();

    void xlrdReadsTheSheet();

private:
    QString freshPath() const;

    QTemporaryDir m_dir;
};

QString tst_ExcelFile::freshPath() const
{
    QString name = QString::fromLatin1(QTest::currentTestFunction());
    if (const char* tag = QTest::currentDataTag())
        name += QLatin1Char('_') + QString::fromLatin1(QByteArray(tag).toHex());
    return m_dir.filePath(name + QStringLiteral(".xls"));
}

void tst_ExcelFile::openAndCloseWriteBofAndEof()
{
    QVERIFY(m_dir.isValid());
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.CloseFile();
    QCOMPARE(contentsOf(path), Bof + Eof);
}

void tst_ExcelFile::labelRecord_data()
{
    QTest::addColumn<short>("row");
    QTest::addColumn<uchar>("col");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("first cell") << short(1) << uchar(1) << QStringLiteral("abc")
                                << QByteArray::fromHex("0400 0b00 0000 0000 000000 03 616263");
    QTest::newRow("empty text") << short(2) << uchar(3) << QString()
                                << QByteArray::fromHex("0400 0800 0100 0200 000000 00");
    QTest::newRow("row 300") << short(300) << uchar(2) << QStringLiteral("x")
                             << QByteArray::fromHex("0400 0900 2b01 0100 000000 01 78");
    QTest::newRow("row 257") << short(257) << uchar(1) << QStringLiteral("y")
                             << QByteArray::fromHex("0400 0900 0001 0000 000000 01 79");
    QTest::newRow("last row, last col") << short(32767) << uchar(255) << QStringLiteral("z")
                                        << QByteArray::fromHex("0400 0900 fe7f fe00 000000 01 7a");
}

void tst_ExcelFile::labelRecord()
{
    QFETCH(short, row);
    QFETCH(uchar, col);
    QFETCH(QString, text);
    QFETCH(QByteArray, record);

    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteString(row, col, text);
    excel.CloseFile();
    QCOMPARE(contentsOf(path), Bof + record + Eof);
}

void tst_ExcelFile::integerRecord_data()
{
    QTest::addColumn<short>("row");
    QTest::addColumn<uchar>("col");
    QTest::addColumn<int>("value");
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("zero") << short(1) << uchar(1) << 0
                          << QByteArray::fromHex("0200 0900 0000 0000 000000 0000");
    QTest::newRow("255") << short(4) << uchar(2) << 255
                         << QByteArray::fromHex("0200 0900 0300 0100 000000 ff00");
    QTest::newRow("256") << short(5) << uchar(3) << 256
                         << QByteArray::fromHex("0200 0900 0400 0200 000000 0001");
    QTest::newRow("1234 at row 300")
        << short(300) << uchar(1) << 1234 << QByteArray::fromHex("0200 0900 2b01 0000 000000 d204");
    QTest::newRow("65535") << short(1) << uchar(10) << 65535
                           << QByteArray::fromHex("0200 0900 0000 0900 000000 ffff");
}

void tst_ExcelFile::integerRecord()
{
    QFETCH(short, row);
    QFETCH(uchar, col);
    QFETCH(int, value);
    QFETCH(QByteArray, record);

    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteInteger(row, col, value);
    excel.CloseFile();
    QCOMPARE(contentsOf(path), Bof + record + Eof);
}

void tst_ExcelFile::numberRecord_data()
{
    QTest::addColumn<short>("row");
    QTest::addColumn<uchar>("col");
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("record");

    QTest::newRow("1.5") << short(1) << uchar(1) << 1.5
                         << QByteArray::fromHex("0300 0f00 0000 0000 000000 000000000000f83f");
    QTest::newRow("-2") << short(2) << uchar(2) << -2.0
                        << QByteArray::fromHex("0300 0f00 0100 0100 000000 00000000000000c0");
    QTest::newRow("1234.5 at row 300")
        << short(300) << uchar(4) << 1234.5
        << QByteArray::fromHex("0300 0f00 2b01 0300 000000 00000000004a9340");
    QTest::newRow("0.1") << short(1) << uchar(1) << 0.1
                         << QByteArray::fromHex("0300 0f00 0000 0000 000000 9a9999999999b93f");
    QTest::newRow("negative zero")
        << short(1) << uchar(1) << -0.0
        << QByteArray::fromHex("0300 0f00 0000 0000 000000 0000000000000080");
}

void tst_ExcelFile::numberRecord()
{
    QFETCH(short, row);
    QFETCH(uchar, col);
    QFETCH(double, value);
    QFETCH(QByteArray, record);

    QCOMPARE(record.size(), 19);
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteFloat(row, col, value);
    excel.CloseFile();
    QCOMPARE(contentsOf(path), Bof + record + Eof);
}

void tst_ExcelFile::recordsFollowEachOther()
{
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteString(1, 1, QStringLiteral("a"));
    excel.EWriteInteger(1, 2, 7);
    excel.EWriteString(2, 1, QStringLiteral("bc"));
    excel.CloseFile();

    // Each LABEL sets its own length bytes; nothing of the longer one lingers in the next.
    const QByteArray expected = Bof + QByteArray::fromHex("0400 0900 0000 0000 000000 01 61") +
                                QByteArray::fromHex("0200 0900 0000 0100 000000 0700") +
                                QByteArray::fromHex("0400 0a00 0100 0000 000000 02 6263") + Eof;
    QCOMPARE(contentsOf(path), expected);
}

void tst_ExcelFile::manyRecordsArriveInOrder()
{
    // Some 600 KB of records of every kind and length: the writer gathers them in blocks, and
    // no record may be lost, doubled or cut where one block ends and the next begins.
    const QString path = freshPath();
    QByteArray expected = Bof;
    ExcelFile excel;
    excel.OpenFile(path);
    for (int i = 0; i < 30000; ++i) {
        const auto row = short(1 + i % 30000);
        const auto col = uchar(1 + i % 200);
        // Row and column (two bytes each, from 0) and three attribute bytes.
        QByteArray place(7, 0);
        place[0] = char((row - 1) & 0xFF);
        place[1] = char((row - 1) >> 8);
        place[2] = char(col - 1);
        switch (i % 3) {
        case 0: {
            const QByteArray text(i % 120, char('a' + i % 26));
            excel.EWriteString(row, col, QString::fromLatin1(text));
            expected += QByteArray::fromHex("0400") + char(8 + text.size()) + char(0) + place +
                        char(text.size()) + text;
            break;
        }
        case 1:
            excel.EWriteInteger(row, col, i);
            expected +=
                QByteArray::fromHex("0200 0900") + place + char(i & 0xFF) + char((i >> 8) & 0xFF);
            break;
        default: {
            const double value = i / 8.0;
            excel.EWriteFloat(row, col, value);
            QByteArray bytes(8, 0);
            qToLittleEndian(std::bit_cast<quint64>(value), bytes.data());
            expected += QByteArray::fromHex("0300 0f00") + place + bytes;
        }
        }
    }
    excel.CloseFile();
    expected += Eof;

    QVERIFY(expected.size() > 500 * 1024);
    QCOMPARE(contentsOf(path), expected);
}

void tst_ExcelFile::labelOf247BytesAccepted()
{
    const QString path = freshPath();
    const QString text(247, QLatin1Char('w'));
    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteString(1, 1, text);
    excel.CloseFile();

    const QByteArray header = QByteArray::fromHex("0400 ff00 0000 0000 000000 f7");
    QCOMPARE(contentsOf(path), Bof + header + text.toLatin1() + Eof);
}

void tst_ExcelFile::labelTooLongRefused_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("248 bytes") << QString(248, QLatin1Char('w'));
    QTest::newRow("255 bytes") << QString(255, QLatin1Char('w'));
    QTest::newRow("256 bytes") << QString(256, QLatin1Char('w'));
    // 124 characters of two GBK bytes each are 248 bytes: the count is of bytes, not characters.
    QTest::newRow("248 bytes from 124 characters") << QString(124, QChar(0x4E2D));
}

void tst_ExcelFile::labelTooLongRefused()
{
    QFETCH(QString, text);

    const ScopedLocale locale("zh_CN.UTF-8");
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    QCOMPARE(errorNumberOf([&] { excel.EWriteString(1, 1, text); }), OverflowNumber);
    excel.CloseFile();
    QCOMPARE(contentsOf(path), Bof + Eof);
}

void tst_ExcelFile::integerOutOfRangeRefused_data()
{
    QTest::addColumn<int>("value");

    QTest::newRow("-1") << -1;
    QTest::newRow("65536") << 65536;
    QTest::newRow("-65536") << -65536;
    QTest::newRow("INT_MIN") << INT_MIN;
    QTest::newRow("INT_MAX") << INT_MAX;
}

void tst_ExcelFile::integerOutOfRangeRefused()
{
    QFETCH(int, value);

    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    QCOMPARE(errorNumberOf([&] { excel.EWriteInteger(1, 1, value); }), OverflowNumber);
    excel.CloseFile();
    QCOMPARE(contentsOf(path), Bof + Eof);
}

void tst_ExcelFile::cellOutsideSheetRefused_data()
{
    QTest::addColumn<short>("row");
    QTest::addColumn<uchar>("col");

    QTest::newRow("row 0") << short(0) << uchar(1);
    QTest::newRow("row -1") << short(-1) << uchar(1);
    QTest::newRow("row -32768") << short(-32768) << uchar(1);
    QTest::newRow("col 0") << short(1) << uchar(0);
}

void tst_ExcelFile::cellOutsideSheetRefused()
{
    QFETCH(short, row);
    QFETCH(uchar, col);

    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    QCOMPARE(errorNumberOf([&] { excel.EWriteString(row, col, QStringLiteral("a")); }),
             OverflowNumber);
    QCOMPARE(errorNumberOf([&] { excel.EWriteInteger(row, col, 1); }), OverflowNumber);
    QCOMPARE(errorNumberOf([&] { excel.EWriteFloat(row, col, 1.0); }), OverflowNumber);
    excel.CloseFile();
    QCOMPARE(contentsOf(path), Bof + Eof);
}

void tst_ExcelFile::existingLongerFileKeepsTrailingBytes()
{
    const QString path = freshPath();
    const QByteArray old(100, '\xEE');
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(old), old.size());
    }

    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteInteger(1, 1, 5);
    excel.CloseFile();

    const QByteArray written = Bof + QByteArray::fromHex("0200 0900 0000 0000 000000 0500") + Eof;
    const QByteArray contents = contentsOf(path);
    QCOMPARE(contents.size(), old.size());
    QCOMPARE(contents.left(written.size()), written);
    QCOMPARE(contents.mid(written.size()), old.mid(written.size()));
}

void tst_ExcelFile::textOutsideCodePageBecomesQuestionMark()
{
    const ScopedLocale locale("en_US.UTF-8");
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    // "€" is 0x80 in Windows-1252 (not Latin-1); "中" is not in that code page at all.
    excel.EWriteString(1, 1, QStringLiteral("é€中"));
    excel.CloseFile();

    const QByteArray record = QByteArray::fromHex("0400 0b00 0000 0000 000000 03 e9803f");
    QCOMPARE(contentsOf(path), Bof + record + Eof);
}

void tst_ExcelFile::textInChineseCodePages_data()
{
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("textBytes");

    QTest::newRow("GBK") << QByteArray("zh_CN.UTF-8") << QStringLiteral("中")
                         << QByteArray::fromHex("d6d0");
    QTest::newRow("GBK mixed") << QByteArray("zh_CN.UTF-8") << QStringLiteral("a中文")
                               << QByteArray::fromHex("61d6d0cec4");
    QTest::newRow("Big5") << QByteArray("zh_TW.UTF-8") << QStringLiteral("中")
                          << QByteArray::fromHex("a4a4");
}

void tst_ExcelFile::textInChineseCodePages()
{
    QFETCH(QByteArray, lang);
    QFETCH(QString, text);
    QFETCH(QByteArray, textBytes);

    const ScopedLocale locale(lang);
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteString(1, 1, text);
    excel.CloseFile();

    QByteArray header = QByteArray::fromHex("0400 0000 0000 0000 000000 00");
    header[2] = char(textBytes.size() + 8);
    header[11] = char(textBytes.size());
    QCOMPARE(contentsOf(path), Bof + header + textBytes + Eof);
}

void tst_ExcelFile::writeWithoutOpenFileThrows_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("EWriteString") << 0;
    QTest::newRow("EWriteInteger") << 1;
    QTest::newRow("EWriteFloat") << 2;
    QTest::newRow("CloseFile") << 3;
}

void tst_ExcelFile::writeWithoutOpenFileThrows()
{
    QFETCH(int, kind);

    ExcelFile excel;
    const std::function<void()> calls[] = {
        [&] { excel.EWriteString(1, 1, QStringLiteral("a")); },
        [&] { excel.EWriteInteger(1, 1, 1); },
        [&] { excel.EWriteFloat(1, 1, 1.0); },
        [&] { excel.CloseFile(); },
    };
    QCOMPARE(errorNumberOf(calls[kind]), BadFileNameOrNumber);
}

void tst_ExcelFile::writeAfterCloseFileThrows()
{
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.CloseFile();
    QCOMPARE(errorNumberOf([&] { excel.EWriteInteger(1, 1, 1); }), BadFileNameOrNumber);
    QCOMPARE(errorNumberOf([&] { excel.CloseFile(); }), BadFileNameOrNumber);
    QCOMPARE(contentsOf(path), Bof + Eof);
}

void tst_ExcelFile::openFileThatCannotBeOpenedThrows_data()
{
    QTest::addColumn<QString>("fileName");

    QTest::newRow("a directory") << m_dir.path();
    QTest::newRow("missing directory") << m_dir.filePath(QStringLiteral("missing/sheet.xls"));
}

void tst_ExcelFile::openFileThatCannotBeOpenedThrows()
{
    QFETCH(QString, fileName);

    ExcelFile excel;
    excel.OpenFile(freshPath());
    QCOMPARE(errorNumberOf([&] { excel.OpenFile(fileName); }), PathFileAccessError);
    // Part 1.8: a file that cannot be opened leaves every later write failing.
    QCOMPARE(errorNumberOf([&] { excel.EWriteFloat(1, 1, 1.0); }), BadFileNameOrNumber);
    QCOMPARE(errorNumberOf([&] { excel.CloseFile(); }), BadFileNameOrNumber);
}

void tst_ExcelFile::writeFailureThrows()
{
    const QString full = QStringLiteral("/dev/full");
    if (!QFileInfo(full).isWritable())
        QSKIP("/dev/full is not available to simulate a full disk");

    ExcelFile excel;
    excel.OpenFile(full);
    excel.EWriteFloat(1, 1, 2.5);
    QCOMPARE(errorNumberOf([&] { excel.CloseFile(); }), DeviceIoError);
}

void tst_ExcelFile::destructorClosesWithoutEof()
{
    const QString path = freshPath();
    {
        ExcelFile excel;
        excel.OpenFile(path);
        excel.EWriteInteger(2, 2, 1);
    }
    QCOMPARE(contentsOf(path), Bof + QByteArray::fromHex("0200 0900 0100 0100 000000 0100"));
}

void tst_ExcelFile::reopenClosesFirstFileWithoutEof()
{
    const QString first = freshPath();
    const QString second = first + QStringLiteral(".second.xls");
    ExcelFile excel;
    excel.OpenFile(first);
    excel.OpenFile(second);
    excel.CloseFile();
    QCOMPARE(contentsOf(first), Bof);
    QCOMPARE(contentsOf(second), Bof + Eof);
}

void tst_ExcelFile::xlrdReadsTheSheet()
{
    const QString python = VemoTest::pythonWithXlrd();
    if (python.isEmpty())
        QSKIP("python3 with xlrd is not installed (Debian package python3-xlrd; ./vemo installs "
              "it): the BIFF2 read-back is not checked");

    const ScopedLocale locale("en_US.UTF-8");
    const QString path = freshPath();
    ExcelFile excel;
    excel.OpenFile(path);
    excel.EWriteString(1, 1, QStringLiteral("Name"));
    excel.EWriteString(1, 2, QStringLiteral("Qty"));
    excel.EWriteString(1, 3, QStringLiteral("Größe €"));
    excel.EWriteString(2, 1, QStringLiteral("Apple"));
    excel.EWriteInteger(2, 2, 3);
    excel.EWriteFloat(2, 3, 1234.5);
    excel.EWriteString(300, 1, QStringLiteral("late"));
    excel.EWriteInteger(300, 2, 65535);
    excel.EWriteFloat(300, 3, -0.125);
    excel.EWriteString(3, 200, QString());
    excel.CloseFile();

    QProcess reader;
    reader.start(python, {QStringLiteral(VEMO_SOURCE_DIR "/tests/grid/read_biff2.py"), path,
                          QStringLiteral("cp1252")});
    QVERIFY(reader.waitForFinished(20000));
    QVERIFY2(reader.exitCode() == 0, reader.readAllStandardError().constData());

    // xlrd's cell types: 1 text, 2 number (INTEGER cells are read as numbers too).
    const QStringList expected = {
        QStringLiteral("0\t0\t1\tName"),      QStringLiteral("0\t1\t1\tQty"),
        QStringLiteral("0\t2\t1\tGröße €"),   QStringLiteral("1\t0\t1\tApple"),
        QStringLiteral("1\t1\t2\t3.0"),       QStringLiteral("1\t2\t2\t1234.5"),
        QStringLiteral("2\t199\t1\t"),        QStringLiteral("299\t0\t1\tlate"),
        QStringLiteral("299\t1\t2\t65535.0"), QStringLiteral("299\t2\t2\t-0.125"),
    };
    const QString output = QString::fromUtf8(reader.readAllStandardOutput());
    QCOMPARE(output.split(QLatin1Char('\n'), Qt::SkipEmptyParts), expected);
}

QTEST_GUILESS_MAIN(tst_ExcelFile)
#include "tst_excelfile.moc"
