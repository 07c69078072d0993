// SPDX-License-Identifier: MIT
// The BIFF2 writer ExcelFile, checked byte by byte, and VemoGrid::ExportToExcel, whose sheet is
// read back with xlrd.
#include <VemoGridLib/ExcelFile.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoTestSupport.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using namespace VemoGridLib;
using VemoTest::errorNumberOf;
using VemoTest::ScopedLocale;

namespace {

// Records as written: record number, length, row, column, three attribute bytes, the value.
const QByteArray Bof = QByteArray::fromHex("0900 0400 0200 0a00");
const QByteArray Eof = QByteArray::fromHex("0a00 0000");

/// The interpreter that can import xlrd (Debian's python3-xlrd is for /usr/bin/python3), or "".
QString pythonWithXlrd()
{
    for (const QString& python :
         {QStringLiteral("/usr/bin/python3"), QStandardPaths::findExecutable("python3")}) {
        QProcess probe;
        probe.start(python, {QStringLiteral("-c"), QStringLiteral("import xlrd")});
        if (!python.isEmpty() && probe.waitForFinished(10000) && probe.exitCode() == 0)
            return python;
    }
    return {};
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The cell records of a written sheet as "record row col", up to EOF.
QStringList cellRecords(const QByteArray& bytes)
{
    QStringList cells;
    for (qsizetype at = Bof.size(); at + 7 <= bytes.size();) {
        const auto word = [&](qsizetype offset) {
            return qFromLittleEndian<quint16>(bytes.constData() + at + offset);
        };
        if (word(0) == 0x000A)
            break;
        cells << QStringLiteral("%1 %2 %3").arg(word(0)).arg(word(4)).arg(word(6));
        at += 4 + word(2);
    }
    return cells;
}

} // namespace

class tst_ExcelFile : public QObject
{
    Q_OBJECT

private slots:

    void records_data()
    {
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<short>("row");
        QTest::addColumn<uchar>("col");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QByteArray>("record"); // empty: refused with an overflow

        const auto row = [](const char* tag, short r, uchar c, const QVariant& v, const char* hex,
                            const char* lang = "zh_CN.UTF-8") {
            QTest::newRow(tag) << QByteArray(lang) << r << c << v << QByteArray::fromHex(hex);
        };
        row("label", 1, 1, QStringLiteral("abc"), "0400 0b00 0000 0000 000000 03 616263");
        row("empty label", 2, 3, QString(), "0400 0800 0100 0200 000000 00");
        row("last row and column", 32767, 255, QStringLiteral("z"),
            "0400 0900 fe7f fe00 000000 01 7a");
        row("integer 65535", 1, 10, 65535, "0200 0900 0000 0900 000000 ffff");
        row("number 1234.5", 300, 4, 1234.5, "0300 0f00 2b01 0300 000000 00000000004a9340");
        // Texts in the user locale's code page: "€" is 0x80 in Windows-1252, "中" is not in it.
        row("Windows-1252", 1, 1, QStringLiteral("é€中"), "0400 0b00 0000 0000 000000 03 e9803f",
            "en_US.UTF-8");
        row("GBK", 1, 1, QStringLiteral("a中"), "0400 0b00 0000 0000 000000 03 61d6d0");
        row("Big5", 1, 1, QStringLiteral("中"), "0400 0a00 0000 0000 000000 02 a4a4",
            "zh_TW.UTF-8");
        row("248 bytes", 1, 1, QString(248, QLatin1Char('w')), "");
        // 124 characters of two GBK bytes each: the count is of bytes.
        row("248 GBK bytes", 1, 1, QString(124, QChar(0x4E2D)), "");
        row("integer -1", 1, 1, -1, "");
        row("integer 65536", 1, 1, 65536, "");
        row("row 0", 0, 1, 1.0, "");
        row("row -32768", -32768, 1, 1, "");
        row("col 0", 1, 0, QStringLiteral("a"), "");
    }

    void records()
    {
        QFETCH(QByteArray, lang);
        QFETCH(short, row);
        QFETCH(uchar, col);
        QFETCH(QVariant, value);
        QFETCH(QByteArray, record);
        QVERIFY(m_dir.isValid());
        const ScopedLocale locale(lang);
        const QString path = freshPath();
        ExcelFile excel;
        excel.OpenFile(path);
        const int type = value.typeId();
        QCOMPARE(errorNumberOf([&] {
                     type == QMetaType::QString ? excel.EWriteString(row, col, value.toString())
                     : type == QMetaType::Int   ? excel.EWriteInteger(row, col, value.toInt())
                                                : excel.EWriteFloat(row, col, value.toDouble());
                 }),
                 record.isEmpty() ? 6 : 0);
        excel.CloseFile();
        QCOMPARE(contentsOf(path), Bof + record + Eof);
    }

    void fileHandling()
    {
        // An existing longer file is overwritten from the start, not truncated.
        const QString path = freshPath();
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(100, 'x')) == 100);
        file.close();
        ExcelFile excel;
        excel.OpenFile(path);
        excel.EWriteInteger(1, 1, 5);
        excel.CloseFile();
        const QByteArray written =
            Bof + QByteArray::fromHex("0200 0900 0000 0000 000000 0500") + Eof;
        QCOMPARE(contentsOf(path), written + QByteArray(100 - written.size(), 'x'));

        // Without an open file every call raises 52, also after one that could not be opened (75).
        QCOMPARE(errorNumberOf([&] { excel.CloseFile(); }), 52);
        excel.OpenFile(path);
        QCOMPARE(errorNumberOf([&] { excel.OpenFile(m_dir.path()); }), 75);
        QCOMPARE(errorNumberOf([&] { excel.EWriteString(1, 1, QStringLiteral("a")); }), 52);
        // A file the writer outlives is closed without EOF.
        {
            ExcelFile outlived;
            outlived.OpenFile(path);
        }
        QCOMPARE(contentsOf(path), written + QByteArray(100 - written.size(), 'x'));
        if (QFileInfo(QStringLiteral("/dev/full")).isWritable()) {
            excel.OpenFile(QStringLiteral("/dev/full"));
            excel.EWriteFloat(1, 1, 2.5);
            QCOMPARE(errorNumberOf([&] { excel.CloseFile(); }), 57);
        }
    }

    void exportBytes()
    {
        VemoGrid grid;
        grid.setCols(4);
        grid.setRows(3);
        grid.setColType(2, eLong);
        grid.setColType(3, eCurrency);
        FlexGrid* const flex = grid.hostedGrid();
        const QStringList cells = {"corner", "Name",     "N",   "", "row", "apple",
                                   "1,234",  "1,234.50", "row", "", "-5",  ""};
        for (int i = 0; i < cells.size(); ++i)
            flex->setTextMatrix(i / 4, i % 4, cells.at(i));
        const QString path = freshPath();

        grid.ExportToExcel(path);

        // The fixed column is left out; the headers come first, then the data column by column.
        // An empty text is an empty LABEL, a negative long nothing at all.
        QCOMPARE(contentsOf(path),
                 Bof +
                     QByteArray::fromHex("0400 0c00 0000 0000 000000 04 4e616d65"
                                         "0400 0900 0000 0100 000000 01 4e"
                                         "0400 0800 0000 0200 000000 00"
                                         "0400 0d00 0100 0000 000000 05 6170706c65"
                                         "0400 0800 0200 0000 000000 00"
                                         "0200 0900 0100 0100 000000 d204"
                                         "0300 0f00 0100 0200 000000 00000000004a9340"
                                         "0400 0800 0200 0200 000000 00") +
                     Eof);

        // A path that cannot be opened raises nothing, and the kept writer works on.
        QVERIFY_THROWS_NO_EXCEPTION(grid.ExportToExcel(m_dir.path()));
        grid.ExportToExcel(path);
        QCOMPARE(cellRecords(contentsOf(path)).size(), 8);
    }

    void exportReadBackByXlrd()
    {
        const QString python = pythonWithXlrd();
        if (python.isEmpty())
            QSKIP("python3 with xlrd (Debian package python3-xlrd) is not installed");

        // One column per case: type, AutoAdd, the cell text, and what xlrd reads (1 a text,
        // 2 a number; INTEGER cells read as numbers too; empty: no cell).
        const QList<std::tuple<int, bool, QString, QString>> cases = {
            {eCurrency, false, "1,234.50", "2\t1234.5"},
            {eCurrency, false, "  x y  ", "1\tx y"},
            {eCurrency, false, "", "1\t"},
            {eNumeric, false, "-0.125", "2\t-0.125"},
            {eLong, false, "1,2e3", "2\t12000.0"},
            {eLong, false, "2.5", "2\t2.0"},
            {eLong, false, "65536", ""},
            {eLong, false, " a,b ", "1\tab"},
            {eCheckBox, false, ".", "1\tTrue"},
            {eCheckBox, false, " . ", "1\tFalse"},
            {eTextBox, false, " a ", "1\t a "},
            {eTextBox, false, "Größe €", "1\tGröße €"},
            {eTextBox, false, QString(248, QLatin1Char('w')), ""},
            {eCalendar, false, "2024-02-03", "1\t2024-02-03"},
            {9, false, "12", "1\t12"},
            {eTextBox, true, " 12 ", "2\t12.0"},
            {eTextBox, true, "abc", ""},
            {eCurrency, true, "1.5", "2\t2.0"},
            {eCheckBox, true, ".", ""},
        };
        const ScopedLocale locale("en_US.UTF-8");
        VemoGrid grid;
        grid.setCols(int(cases.size()) + 1);
        QStringList headers, data;
        for (int c = 1; c <= cases.size(); ++c) {
            const auto& [type, autoAdd, text, read] = cases.at(c - 1);
            grid.setColType(c, VemoGridColType(type));
            grid.Column(c)->setAutoAdd(autoAdd);
            grid.hostedGrid()->setTextMatrix(0, c, QStringLiteral("C%1").arg(c));
            grid.hostedGrid()->setTextMatrix(1, c, text);
            headers << QStringLiteral("0\t%1\t1\tC%2").arg(c - 1).arg(c);
            data << (read.isEmpty() ? QString() : QStringLiteral("1\t%1\t").arg(c - 1) + read);
        }
        data.removeAll(QString());
        const QString path = freshPath();
        grid.ExportToExcel(path);

        QProcess reader;
        reader.start(python, {QStringLiteral(VEMO_SOURCE_DIR "/tests/grid/read_biff2.py"), path});
        QVERIFY(reader.waitForFinished(20000));
        QVERIFY2(reader.exitCode() == 0, reader.readAllStandardError().constData());
        QCOMPARE(QString::fromUtf8(reader.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts),
                 headers + data);
    }

    void exportSheetLimits()
    {
        // Headers go out for the columns the one-byte column number holds; data only while the
        // data loop's one-byte counter holds Cols - 1.
        for (const int cols : {256, 257}) {
            VemoGrid grid;
            grid.setCols(cols);
            const QString path = freshPath() + QString::number(cols);
            grid.ExportToExcel(path);
            QCOMPARE(cellRecords(contentsOf(path)).size(), cols == 256 ? 2 * 255 : 255);
        }

        // The writer's row is 16 bits: rows past 32766 are dropped, and past 65535 do not wrap.
        VemoGrid grid;
        grid.setRows(65539);
        grid.setColType(1, eLong);
        for (const int row : {1, 32766, 32767, 65535, 65536, 65538})
            grid.hostedGrid()->setTextMatrix(row, 1, QStringLiteral("7"));
        const QString path = freshPath();
        grid.ExportToExcel(path);
        QCOMPARE(cellRecords(contentsOf(path)), QStringList({"4 0 0", "2 1 0", "2 32766 0"}));
    }

private:
    QString freshPath() const
    {
        QString name = QString::fromLatin1(QTest::currentTestFunction());
        if (const char* tag = QTest::currentDataTag())
            name += QLatin1Char('_') + QString::fromLatin1(QByteArray(tag).toHex());
        return m_dir.filePath(name + QStringLiteral(".xls"));
    }

    QTemporaryDir m_dir;
};

QTEST_MAIN(tst_ExcelFile)
#include "tst_excelfile.moc"
