// Part 1.8: VemoGrid::ExportToExcel, checked on the bytes of the written BIFF2 file.
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>
#include "grid/VemoGrid_p.h"

#include "PythonXlrd.h"
#include "VemoTestSupport.h"
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

#include <QTest>

#include <cstring>
#include <exception>
#include <memory>

using namespace VemoGridLib;
using VemoTest::ScopedLocale;

namespace {

// Records are compared as text, one line a record: "BOF version type", "LABEL row col text",
// "INTEGER row col value", "NUMBER row col value", "EOF"; rows and columns as the file holds them
// (zero-based), LABEL texts as their bytes read as Latin-1. A record whose fields disagree with
// Part 1.8's layout reads "BAD ...", so it can never match an expected line.
const QString BofLine = QStringLiteral("BOF 2 10");
const QString EofLine = QStringLiteral("EOF");

QString label(int row, int col, const QString& text)
{
    return QStringLiteral("LABEL %1 %2 %3").arg(row).arg(col).arg(text);
}

QString integer(int row, int col, int value)
{
    return QStringLiteral("INTEGER %1 %2 %3").arg(row).arg(col).arg(value);
}

QString number(int row, int col, double value)
{
    return QStringLiteral("NUMBER %1 %2 %3").arg(row).arg(col).arg(value, 0, 'g', 17);
}

struct Sheet
{
    /// The records up to and including EOF.
    QStringList records;
    /// Whatever follows the EOF record.
    QByteArray trailing;
};

quint16 wordAt(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

// The cell attributes and the column's high byte are always zero in Part 1.8's records.
bool cellFieldsValid(const QByteArray& body)
{
    return body.at(3) == 0 && body.at(4) == 0 && body.at(5) == 0 && body.at(6) == 0;
}

QString cellRecord(quint16 type, const QByteArray& body)
{
    const QString bad =
        QStringLiteral("BAD type %1 body %2").arg(type).arg(QString::fromLatin1(body.toHex(' ')));
    if (body.size() < 7 || !cellFieldsValid(body))
        return bad;
    const int row = wordAt(body, 0);
    const int col = uchar(body.at(2));
    switch (type) {
    case 0x0004: {
        const int textLength = body.size() < 8 ? -1 : uchar(body.at(7));
        if (textLength != body.size() - 8)
            return bad;
        return label(row, col, QString::fromLatin1(body.mid(8)));
    }
    case 0x0002:
        if (body.size() != 9)
            return bad;
        return integer(row, col, wordAt(body, 7));
    case 0x0003: {
        if (body.size() != 15)
            return bad;
        double value = 0;
        std::memcpy(&value, body.constData() + 7, sizeof value);
        return number(row, col, value);
    }
    default:
        return bad;
    }
}

Sheet parse(const QByteArray& bytes)
{
    Sheet sheet;
    qsizetype at = 0;
    while (at + 4 <= bytes.size()) {
        const quint16 type = wordAt(bytes, at);
        const quint16 length = wordAt(bytes, at + 2);
        if (at + 4 + length > bytes.size()) {
            sheet.records << QStringLiteral("BAD truncated record %1").arg(type);
            return sheet;
        }
        const QByteArray body = bytes.mid(at + 4, length);
        at += 4 + length;
        if (type == 0x0009 && length == 4) {
            sheet.records << QStringLiteral("BOF %1 %2").arg(wordAt(body, 0)).arg(wordAt(body, 2));
        } else if (type == 0x000A && length == 0) {
            sheet.records << EofLine;
            sheet.trailing = bytes.mid(at);
            return sheet;
        } else {
            sheet.records << cellRecord(type, body);
        }
    }
    sheet.records << QStringLiteral("BAD no EOF");
    return sheet;
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

QStringList sheet(const QStringList& cells)
{
    return QStringList{BofLine} + cells + QStringList{EofLine};
}

/// A run-time grid with `rows` × `cols` cells, one fixed row and one fixed column.
std::unique_ptr<VemoGrid> makeGrid(int rows, int cols)
{
    auto grid = std::make_unique<VemoGrid>();
    grid->setCols(cols);
    grid->setRows(rows);
    return grid;
}

/// Writes the raw cell text, as the editors store it.
void setCell(VemoGrid& grid, int row, int col, const QString& text)
{
    grid.hostedGrid()->setTextMatrix(row, col, text);
}

/// Runs the export and reports whatever escapes it, which Part 1.8 says is nothing.
QString exportEscape(VemoGrid& grid, const QString& path)
{
    try {
        grid.ExportToExcel(path);
    } catch (const VemoError& error) {
        return QStringLiteral("VemoError %1").arg(error.number());
    } catch (const std::exception& error) {
        return QString::fromLocal8Bit(error.what());
    }
    return {};
}

} // namespace

class tst_Export : public QObject
{
    Q_OBJECT

private slots:
    void recordSequenceSkipsColumnZero();
    void cellByColumnType_data();
    void cellByColumnType();
    void checkBoxSetThroughGrid();
    void existingLongerFileKeepsTrailingBytes();
    void textLongerThan247BytesDropped();
    void unopenablePathIsSilent_data();
    void unopenablePathIsSilent();
    void columnCountAndOneByteCounter_data();
    void columnCountAndOneByteCounter();
    void rowsBeyondSheetRangeDropped();
    void secondExportReusesWriter();
    void designTimeColumnsExportAsText();
    void chineseTextWrittenAsGbk();
    void xlrdReadsEveryColumnType();
    void largeGridExport();

private:
    QString freshPath() const;
    QStringList exported(VemoGrid& grid);

    QTemporaryDir m_dir;
};

QString tst_Export::freshPath() const
{
    QString name = QString::fromLatin1(QTest::currentTestFunction());
    if (const char* tag = QTest::currentDataTag())
        name += QLatin1Char('_') + QString::fromLatin1(QByteArray(tag).toHex());
    return m_dir.filePath(name + QStringLiteral(".xls"));
}

// Exports into a fresh file and returns its records; the export must not throw and nothing may
// follow the EOF record.
QStringList tst_Export::exported(VemoGrid& grid)
{
    const QString path = freshPath();
    const QString escaped = exportEscape(grid, path);
    if (!escaped.isEmpty())
        return {QStringLiteral("export threw: ") + escaped};
    Sheet written = parse(contentsOf(path));
    if (!written.trailing.isEmpty())
        written.records << QStringLiteral("trailing bytes ") +
                               QString::fromLatin1(written.trailing.toHex());
    return written.records;
}

void tst_Export::recordSequenceSkipsColumnZero()
{
    QVERIFY(m_dir.isValid());
    const auto grid = makeGrid(3, 3);
    QCOMPARE(grid->FixedRows(), 1);
    setCell(*grid, 0, 0, QStringLiteral("corner"));
    setCell(*grid, 0, 1, QStringLiteral("Name"));
    setCell(*grid, 0, 2, QStringLiteral("Note"));
    setCell(*grid, 1, 0, QStringLiteral("rowhead1"));
    setCell(*grid, 2, 0, QStringLiteral("rowhead2"));
    setCell(*grid, 1, 1, QStringLiteral("apple"));
    setCell(*grid, 2, 1, QStringLiteral("pear"));
    setCell(*grid, 1, 2, QStringLiteral("red"));
    // An empty text cell is still written, as an empty LABEL.
    setCell(*grid, 2, 2, QString());

    // Headers first, then the data column by column, each top to bottom; grid column c lands in
    // sheet column c - 1 and grid row r in sheet row r.
    const QStringList expected = sheet({
        label(0, 0, QStringLiteral("Name")),
        label(0, 1, QStringLiteral("Note")),
        label(1, 0, QStringLiteral("apple")),
        label(2, 0, QStringLiteral("pear")),
        label(1, 1, QStringLiteral("red")),
        label(2, 1, QString()),
    });
    const QStringList records = exported(*grid);
    QCOMPARE(records, expected);
    const QByteArray bytes = contentsOf(freshPath());
    QVERIFY(!bytes.contains("corner"));
    QVERIFY(!bytes.contains("rowhead"));
}

void tst_Export::cellByColumnType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("autoAdd");
    QTest::addColumn<QString>("text");
    // The records written for the one data cell at grid (1, 1), sheet (1, 0); empty: none.
    QTest::addColumn<QStringList>("cell");

    const auto row = [](const char* tag, VemoGridColType type, bool autoAdd, const char* text,
                        const QStringList& cell) {
        QTest::newRow(tag) << int(type) << autoAdd << QString::fromUtf8(text) << cell;
    };
    const auto text = [](const char* value) {
        return label(1, 0, QString::fromUtf8(value));
    };
    const QStringList nothing;

    // Part 1.8 edge cases.
    row("currency 1,234.50", eCurrency, false, "1,234.50", {number(1, 0, 1234.5)});
    row("long 1,234", eLong, false, "1,234", {integer(1, 0, 1234)});
    row("long -5 dropped", eLong, false, "-5", nothing);
    row("long empty", eLong, false, "", nothing);
    row("numeric abc", eNumeric, false, "abc", {text("abc")});
    row("check box checked", eCheckBox, false, ".", {text("True")});
    row("check box unchecked marker", eCheckBox, false, "`", {text("False")});
    row("check box empty", eCheckBox, false, "", {text("False")});
    row("check box True text", eCheckBox, false, "True", {text("False")});
    row("check box padded dot", eCheckBox, false, " . ", {text("False")});

    // eLong: trimmed, every comma removed, numeric → INTEGER (CLng rounding), else LABEL.
    row("long blank", eLong, false, "   ", nothing);
    row("long commas everywhere", eLong, false, " 1,2,3 ", {integer(1, 0, 123)});
    row("long 65535", eLong, false, "65535", {integer(1, 0, 65535)});
    row("long 65536 dropped", eLong, false, "65536", nothing);
    row("long 2.5 half to even", eLong, false, "2.5", {integer(1, 0, 2)});
    row("long 3.5 half to even", eLong, false, "3.5", {integer(1, 0, 4)});
    row("long huge dropped", eLong, false, "3000000000", nothing);
    row("long text keeps no commas", eLong, false, " a,b ", {text("ab")});
    row("long 12a", eLong, false, "12a", {text("12a")});
    row("long comma first", eLong, false, ",5", {integer(1, 0, 5)});
    row("long comma before the point", eLong, false, "1,.5", {integer(1, 0, 2)});
    row("long 1,234.5 half to even", eLong, false, "1,234.5", {integer(1, 0, 1234)});
    row("long exponent", eLong, false, "1,2e3", {integer(1, 0, 12000)});

    // eCurrency, eNumeric: trimmed, numeric → NUMBER, else LABEL of the trimmed text.
    row("currency padded", eCurrency, false, "  2.5  ", {number(1, 0, 2.5)});
    row("currency negative", eCurrency, false, "-1,000.25", {number(1, 0, -1000.25)});
    row("currency dollar", eCurrency, false, "$3", {number(1, 0, 3)});
    row("currency empty label", eCurrency, false, "", {text("")});
    row("currency blank label", eCurrency, false, "   ", {text("")});
    row("currency text trimmed", eCurrency, false, "  x y  ", {text("x y")});
    row("numeric fraction", eNumeric, false, "-0.125", {number(1, 0, -0.125)});
    row("numeric exponent", eNumeric, false, "1e3", {number(1, 0, 1000)});
    row("numeric big", eNumeric, false, "123456789", {number(1, 0, 123456789)});
    row("numeric empty label", eNumeric, false, "", {text("")});

    // Every other type: the text as it stands.
    row("text as is", eTextBox, false, " a ", {text(" a ")});
    row("text number stays text", eTextBox, false, "1,234", {text("1,234")});
    row("text empty", eTextBox, false, "", {text("")});
    row("combo", eComboBox, false, "item", {text("item")});
    row("calendar", eCalendar, false, "2024-02-03", {text("2024-02-03")});
    row("hyperlink", ehyperlink, false, "http://x", {text("http://x")});
    row("button", eButton, false, " 5 ", {text(" 5 ")});
    row("type above 8", VemoGridColType(9), false, "12", {text("12")});

    // AutoAdd is checked first, whatever the type: the text read as a 32-bit integer.
    row("autoadd number", eTextBox, true, "7", {integer(1, 0, 7)});
    row("autoadd padded", eTextBox, true, " 12 ", {integer(1, 0, 12)});
    row("autoadd not a number", eTextBox, true, "abc", nothing);
    row("autoadd empty", eTextBox, true, "", nothing);
    row("autoadd negative", eTextBox, true, "-1", nothing);
    row("autoadd beyond 65535", eTextBox, true, "70000", nothing);
    row("autoadd on currency rounds", eCurrency, true, "1.5", {integer(1, 0, 2)});
    row("autoadd on long text", eLong, true, "a,b", nothing);
    row("autoadd on check box", eCheckBox, true, ".", nothing);
}

void tst_Export::cellByColumnType()
{
    QFETCH(int, type);
    QFETCH(bool, autoAdd);
    QFETCH(QString, text);
    QFETCH(QStringList, cell);

    const auto grid = makeGrid(2, 2);
    grid->setColType(1, VemoGridColType(type));
    grid->Column(1)->setAutoAdd(autoAdd);
    setCell(*grid, 0, 1, QStringLiteral("H"));
    setCell(*grid, 1, 1, text);

    QCOMPARE(exported(*grid), sheet(QStringList{label(0, 0, QStringLiteral("H"))} + cell));
}

void tst_Export::checkBoxSetThroughGrid()
{
    // The grid's own writes store the markers and redraw the box; the export sees the marker.
    const auto grid = makeGrid(5, 2);
    grid->setColType(1, eCheckBox);
    grid->setcgChecked(1, 1, true);
    grid->setcgChecked(2, 1, false);
    grid->setTextMatrix(3, 1, QStringLiteral("True"));
    grid->setTextMatrix(4, 1, QStringLiteral("-1"));
    grid->setTextMatrix(4, 1, QStringLiteral("False"));

    const QStringList expected = sheet({
        label(0, 0, QString()),
        label(1, 0, QStringLiteral("True")),
        label(2, 0, QStringLiteral("False")),
        label(3, 0, QStringLiteral("True")),
        label(4, 0, QStringLiteral("False")),
    });
    QCOMPARE(exported(*grid), expected);
}

void tst_Export::existingLongerFileKeepsTrailingBytes()
{
    const QString path = freshPath();
    const QByteArray old(4096, '\xEE');
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(old), old.size());
    }
    const auto grid = makeGrid(2, 2);
    setCell(*grid, 0, 1, QStringLiteral("H"));
    setCell(*grid, 1, 1, QStringLiteral("v"));

    QCOMPARE(exportEscape(*grid, path), QString());
    const QByteArray contents = contentsOf(path);
    QCOMPARE(contents.size(), old.size());
    const Sheet written = parse(contents);
    QCOMPARE(written.records,
             sheet({label(0, 0, QStringLiteral("H")), label(1, 0, QStringLiteral("v"))}));
    const qsizetype newLength = contents.size() - written.trailing.size();
    QCOMPARE(newLength, 8 + 13 + 13 + 4);
    QCOMPARE(written.trailing, old.mid(newLength));
}

void tst_Export::textLongerThan247BytesDropped()
{
    const QString longest(247, QLatin1Char('v'));
    const QString tooLong(248, QLatin1Char('w'));
    const auto grid = makeGrid(4, 3);
    setCell(*grid, 0, 1, QString(300, QLatin1Char('h')));
    setCell(*grid, 0, 2, QStringLiteral("B"));
    setCell(*grid, 1, 1, tooLong);
    setCell(*grid, 2, 1, longest);
    setCell(*grid, 3, 1, QStringLiteral("after"));
    setCell(*grid, 1, 2, QStringLiteral("next"));
    setCell(*grid, 2, 2, tooLong);
    setCell(*grid, 3, 2, QStringLiteral("last"));

    const QStringList expected = sheet({
        label(0, 1, QStringLiteral("B")),
        label(2, 0, longest),
        label(3, 0, QStringLiteral("after")),
        label(1, 1, QStringLiteral("next")),
        label(3, 1, QStringLiteral("last")),
    });
    QCOMPARE(exported(*grid), expected);
}

void tst_Export::unopenablePathIsSilent_data()
{
    QTest::addColumn<QString>("fileName");

    QTest::newRow("a directory") << m_dir.path();
    QTest::newRow("missing directory") << m_dir.filePath(QStringLiteral("missing/sheet.xls"));
    QTest::newRow("empty name") << QString();
}

void tst_Export::unopenablePathIsSilent()
{
    QFETCH(QString, fileName);

    const auto grid = makeGrid(3, 3);
    setCell(*grid, 0, 1, QStringLiteral("H"));
    setCell(*grid, 1, 1, QStringLiteral("1"));
    grid->setColType(2, eLong);
    setCell(*grid, 1, 2, QStringLiteral("5"));

    QCOMPARE(exportEscape(*grid, fileName), QString());
    QVERIFY(!QFileInfo::exists(m_dir.filePath(QStringLiteral("missing"))));
    QVERIFY(QFileInfo(m_dir.path()).isDir());

    // The failed open leaves the kept writer usable for the next export.
    const QStringList expected = sheet({
        label(0, 0, QStringLiteral("H")),
        label(0, 1, QString()),
        label(1, 0, QStringLiteral("1")),
        label(2, 0, QString()),
        integer(1, 1, 5),
    });
    QCOMPARE(exported(*grid), expected);
}

void tst_Export::columnCountAndOneByteCounter_data()
{
    QTest::addColumn<int>("cols");
    QTest::addColumn<bool>("dataWritten");

    QTest::newRow("256 columns: 255 data columns fit") << 256 << true;
    QTest::newRow("257 columns: the bound overflows") << 257 << false;
    QTest::newRow("300 columns") << 300 << false;
}

void tst_Export::columnCountAndOneByteCounter()
{
    QFETCH(int, cols);
    QFETCH(bool, dataWritten);

    const auto grid = makeGrid(2, cols);
    for (int c = 0; c < cols; ++c) {
        setCell(*grid, 0, c, QStringLiteral("h%1").arg(c));
        setCell(*grid, 1, c, QStringLiteral("d%1").arg(c));
    }

    // Headers go out for every column whose number fits the writer's one-byte Col (1..255);
    // data only when the data loop's one-byte counter can hold Cols - 1.
    QStringList cells;
    for (int c = 1; c <= 255; ++c)
        cells << label(0, c - 1, QStringLiteral("h%1").arg(c));
    if (dataWritten) {
        for (int c = 1; c < cols; ++c)
            cells << label(1, c - 1, QStringLiteral("d%1").arg(c));
    }
    QCOMPARE(exported(*grid), sheet(cells));
}

void tst_Export::rowsBeyondSheetRangeDropped()
{
    // Grid row r is sheet row r and the writer's Row (r + 1) is 16-bit: rows up to 32766 fit.
    // Rows past 65535 must not wrap around onto the first sheet rows either.
    constexpr int rows = 65539;
    const auto grid = makeGrid(rows, 2);
    grid->setColType(1, eLong);
    const auto fill = [&](int from, int to) {
        for (int r = from; r <= to; ++r)
            setCell(*grid, r, 1, QString::number(r % 65536));
    };
    fill(32760, 32770);
    fill(65530, rows - 1);

    QStringList cells{label(0, 0, QString())};
    for (int r = 32760; r <= 32766; ++r)
        cells << integer(r, 0, r);
    QCOMPARE(exported(*grid), sheet(cells));
}

void tst_Export::secondExportReusesWriter()
{
    const QString path = freshPath();
    const auto grid = makeGrid(3, 2);
    setCell(*grid, 0, 1, QStringLiteral("Header"));
    setCell(*grid, 1, 1, QStringLiteral("a much longer first text"));
    setCell(*grid, 2, 1, QStringLiteral("second"));
    QCOMPARE(exportEscape(*grid, path), QString());
    const QByteArray first = contentsOf(path);
    QCOMPARE(parse(first).records, sheet({
                                       label(0, 0, QStringLiteral("Header")),
                                       label(1, 0, QStringLiteral("a much longer first text")),
                                       label(2, 0, QStringLiteral("second")),
                                   }));
    ExcelFile* const writer = VemoGridPrivate::get(grid.get())->excel.get();
    QVERIFY(writer);

    // A shorter table into the same file: the LABEL lengths follow the new texts, and the file
    // keeps the end of the first export after the new EOF.
    grid->setRows(2);
    setCell(*grid, 1, 1, QStringLiteral("x"));
    QCOMPARE(exportEscape(*grid, path), QString());
    QCOMPARE(VemoGridPrivate::get(grid.get())->excel.get(), writer);
    const QByteArray second = contentsOf(path);
    QCOMPARE(second.size(), first.size());
    const Sheet written = parse(second);
    QCOMPARE(written.records,
             sheet({label(0, 0, QStringLiteral("Header")), label(1, 0, QStringLiteral("x"))}));
    QCOMPARE(written.trailing, first.right(written.trailing.size()));
}

void tst_Export::designTimeColumnsExportAsText()
{
    auto grid = std::make_unique<VemoGrid>();
    QCOMPARE(grid->Cols(), 2);
    grid->setColType(1, eCurrency);
    grid->setUserMode(false);
    // At design time Cols leaves the Column array alone: columns 2 and 3 have no Column object.
    grid->setCols(4);
    QVERIFY_THROWS_EXCEPTION(VemoError, grid->Column(3));
    for (int c = 1; c < 4; ++c)
        setCell(*grid, 1, c, QStringLiteral("1.5"));

    const QStringList expected = sheet({
        label(0, 0, QString()),
        label(0, 1, QString()),
        label(0, 2, QString()),
        number(1, 0, 1.5),
        label(1, 1, QStringLiteral("1.5")),
        label(1, 2, QStringLiteral("1.5")),
    });
    QCOMPARE(exported(*grid), expected);
}

void tst_Export::chineseTextWrittenAsGbk()
{
    const ScopedLocale locale("zh_CN.UTF-8");
    const auto grid = makeGrid(5, 3);
    grid->setColType(2, eCurrency);
    setCell(*grid, 0, 1, QStringLiteral("名称"));
    setCell(*grid, 0, 2, QStringLiteral("金额"));
    setCell(*grid, 1, 1, QStringLiteral("中文"));
    // Part 1.8 counts bytes: 124 characters of two GBK bytes are 248 and are dropped.
    setCell(*grid, 2, 1, QString(124, QChar(0x4E2D)));
    setCell(*grid, 3, 1, QString(123, QChar(0x4E2D)));
    setCell(*grid, 1, 2, QStringLiteral("1,234.5"));
    setCell(*grid, 2, 2, QStringLiteral("未知"));
    // The numbers follow the zh-CN user locale too: its currency symbol is the yen sign.
    setCell(*grid, 3, 2, QStringLiteral("¥8"));
    setCell(*grid, 4, 2, QStringLiteral("$8"));

    const auto gbk = [](const char* hex) {
        return QString::fromLatin1(QByteArray::fromHex(hex));
    };
    const QStringList expected = sheet({
        label(0, 0, gbk("c3fbb3c6")),
        label(0, 1, gbk("bdf0b6ee")),
        label(1, 0, gbk("d6d0cec4")),
        label(3, 0, gbk(QByteArray("d6d0").repeated(123).constData())),
        label(4, 0, QString()),
        number(1, 1, 1234.5),
        label(2, 1, gbk("ceb4d6aa")),
        number(3, 1, 8),
        label(4, 1, QStringLiteral("$8")),
    });
    QCOMPARE(exported(*grid), expected);
}

void tst_Export::xlrdReadsEveryColumnType()
{
    const QString python = VemoTest::pythonWithXlrd();
    if (python.isEmpty())
        QSKIP("python3 with xlrd is not installed (Debian package python3-xlrd; ./vemo installs "
              "it): the BIFF2 read-back is not checked");

    const ScopedLocale locale("en_US.UTF-8");
    const VemoGridColType types[] = {eTextBox, eCheckBox, eComboBox, eCalendar, ehyperlink,
                                     eButton,  eCurrency, eNumeric,  eLong,     eTextBox};
    const auto grid = makeGrid(3, 11);
    for (int c = 1; c <= 10; ++c) {
        grid->setColType(c, types[c - 1]);
        setCell(*grid, 0, c, QStringLiteral("C%1").arg(c));
    }
    grid->Column(10)->setAutoAdd(true);
    const QStringList first = {QStringLiteral("Größe"),    QStringLiteral("."),
                               QStringLiteral("item"),     QStringLiteral("2024-02-03"),
                               QStringLiteral("http://x"), QStringLiteral("go"),
                               QStringLiteral("1,234.50"), QStringLiteral("-0.125"),
                               QStringLiteral("1,234"),    QStringLiteral("7")};
    const QStringList second = {QString(),
                                QStringLiteral("`"),
                                QString(),
                                QString(),
                                QString(),
                                QString(),
                                QStringLiteral("n/a"),
                                QString(),
                                QStringLiteral("abc"),
                                QStringLiteral("x")};
    for (int c = 1; c <= 10; ++c) {
        setCell(*grid, 1, c, first.at(c - 1));
        setCell(*grid, 2, c, second.at(c - 1));
    }
    const QString path = freshPath();
    QCOMPARE(exportEscape(*grid, path), QString());

    QProcess reader;
    reader.start(python, {QStringLiteral(VEMO_SOURCE_DIR "/tests/grid/read_biff2.py"), path,
                          QStringLiteral("cp1252")});
    QVERIFY(reader.waitForFinished(20000));
    QVERIFY2(reader.exitCode() == 0, reader.readAllStandardError().constData());

    // xlrd's cell types: 1 text, 2 number (INTEGER cells read as numbers). Rows then columns;
    // xlrd lists an empty LABEL as a text cell with no characters.
    QStringList expected;
    for (int c = 1; c <= 10; ++c)
        expected << QStringLiteral("0\t%1\t1\tC%2").arg(c - 1).arg(c);
    expected << QStringLiteral("1\t0\t1\tGröße") << QStringLiteral("1\t1\t1\tTrue")
             << QStringLiteral("1\t2\t1\titem") << QStringLiteral("1\t3\t1\t2024-02-03")
             << QStringLiteral("1\t4\t1\thttp://x") << QStringLiteral("1\t5\t1\tgo")
             << QStringLiteral("1\t6\t2\t1234.5") << QStringLiteral("1\t7\t2\t-0.125")
             << QStringLiteral("1\t8\t2\t1234.0") << QStringLiteral("1\t9\t2\t7.0");
    expected << QStringLiteral("2\t0\t1\t") << QStringLiteral("2\t1\t1\tFalse")
             << QStringLiteral("2\t2\t1\t") << QStringLiteral("2\t3\t1\t")
             << QStringLiteral("2\t4\t1\t") << QStringLiteral("2\t5\t1\t")
             << QStringLiteral("2\t6\t1\tn/a") << QStringLiteral("2\t7\t1\t")
             << QStringLiteral("2\t8\t1\tabc");
    const QString output = QString::fromUtf8(reader.readAllStandardOutput());
    QCOMPARE(output.split(QLatin1Char('\n'), Qt::SkipEmptyParts), expected);
}

void tst_Export::largeGridExport()
{
    // 16,384 data rows × 10 data columns of mixed types; the time is reported, compared with
    // one buffered write of the same bytes.
    constexpr int dataRows = 16384;
    constexpr int dataCols = 10;
    const auto grid = makeGrid(dataRows + 1, dataCols + 1);
    for (int c = 1; c <= dataCols; ++c) {
        grid->setColType(c, c % 3 == 0 ? eCurrency : (c % 3 == 1 ? eTextBox : eLong));
        setCell(*grid, 0, c, QStringLiteral("Column %1").arg(c));
    }
    for (int r = 1; r <= dataRows; ++r) {
        for (int c = 1; c <= dataCols; ++c)
            setCell(*grid, r, c, QStringLiteral("%1,%2").arg(r % 1000).arg(c));
    }

    const QString path = freshPath();
    QElapsedTimer timer;
    timer.start();
    grid->ExportToExcel(path);
    const qint64 exportNs = timer.nsecsElapsed();

    const QByteArray bytes = contentsOf(path);
    const Sheet written = parse(bytes);
    QCOMPARE(written.records.size(), 1 + dataCols + dataRows * dataCols + 1);
    QCOMPARE(written.records.at(1 + dataCols), label(1, 0, QStringLiteral("1,1")));
    QCOMPARE(written.records.at(1 + dataCols + dataRows), integer(1, 1, 12));
    QCOMPARE(written.records.at(1 + dataCols + 2 * dataRows), number(1, 2, 13));
    QCOMPARE(written.records.last(), EofLine);

    const QString copy = path + QStringLiteral(".copy");
    timer.restart();
    {
        QFile file(copy);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    const qint64 writeNs = timer.nsecsElapsed();
    qInfo("export of %d x %d cells (%lld bytes): %.1f ms; one buffered write: %.2f ms "
          "(ratio %.0f)",
          dataRows, dataCols, qlonglong(bytes.size()), exportNs / 1e6, writeNs / 1e6,
          double(exportNs) / double(qMax<qint64>(writeNs, 1)));
}

QTEST_MAIN(tst_Export)
#include "tst_export.moc"
