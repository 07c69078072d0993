// SPDX-License-Identifier: MIT
// VemoGrid::ExportToXlsx, read back with openpyxl, and ExportToCsv, checked byte by byte.
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoTestSupport.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace VemoGridLib;

namespace {

// One sheet column per case: the grid column's type, AutoAdd and FormatString ("-" keeps what
// the type sets), the data cell's text and what openpyxl reads in row 2: [value, type,
// number format, hyperlink].
struct Case
{
    const char* tag;
    int type;
    bool autoAdd;
    const char* format;
    const char16_t* text;
    const char* read;
};
constexpr Case Cases[] = {
    {"unicode text", eTextBox, false, "-", u"中文 \"汉字\"",
     R"(["中文 \"汉字\"","str","General",null])"},
    {"currency", eCurrency, false, "-", u"1,234.50", R"([1234.5,"float","#,##0.00",null])"},
    {"currency text", eCurrency, false, "-", u"n/a", R"(["n/a","str","General",null])"},
    {"currency empty", eCurrency, false, "-", u"", "[]"},
    {"numeric general", eNumeric, false, "-", u" -0.125 ", R"([-0.125,"float","General",null])"},
    {"numeric named", eNumeric, false, "Percent", u"0.5", R"([0.5,"float","0.00%",null])"},
    {"numeric literal", eNumeric, false, "0.0\" kg\"元", u"2",
     R"([2,"int","0.0 \"kg\"\"元\"",null])"},
    {"long", eLong, false, "-", u"1,234", R"([1234,"int","0",null])"},
    {"date default", eCalendar, false, "-", u"2024-02-03",
     R"(["2024-02-03T00:00:00","datetime","yyyy-mm-dd",null])"},
    {"date time", eCalendar, false, "yyyy/m/d h:nn", u"2024/2/3 13:45",
     R"(["2024-02-03T13:45:00","datetime","yyyy/m/d h:mm",null])"},
    {"date named", eCalendar, false, "Long Date", u"2024-02-03",
     R"(["2024-02-03T00:00:00","datetime","dddd\",\" mmmm dd\",\" yyyy",null])"},
    {"date text", eCalendar, false, "-", u"soon", R"(["soon","str","General",null])"},
    {"checked", eCheckBox, false, "-", u".", R"([true,"bool","General",null])"},
    {"unchecked", eCheckBox, false, "-", u" . ", R"([false,"bool","General",null])"},
    {"link", ehyperlink, false, "-", u"https://example.com/a?b=1",
     R"(["https://example.com/a?b=1","str","General","https://example.com/a?b=1"])"},
    {"no link", ehyperlink, false, "-", u"see notes", R"(["see notes","str","General",null])"},
    {"autoadd", eTextBox, true, "-", u"7", R"([7,"int","General",null])"},
};
constexpr int CaseCount = int(std::size(Cases));
static_assert(CaseCount < 26);

// The sheet's column letter; the cases stay within A to Z.
QString column(int col)
{
    return QString(QChar(u'A' + col));
}

} // namespace

class tst_ExportXlsx : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const VemoTest::ScopedLocale locale("en_US.UTF-8");
        VemoGrid grid;
        grid.setCols(CaseCount + 2);
        for (int c = 1; c <= CaseCount; ++c) {
            const Case& test = Cases[c - 1];
            grid.setColType(c, VemoGridColType(test.type));
            grid.Column(c)->setAutoAdd(test.autoAdd);
            if (QLatin1String(test.format) != QLatin1String("-"))
                grid.Column(c)->setFormatString(QString::fromUtf8(test.format));
            grid.hostedGrid()->setTextMatrix(0, c, QStringLiteral("表头%1").arg(c));
            grid.hostedGrid()->setTextMatrix(1, c, QString::fromUtf16(test.text));
        }
        // The last column: a text longer than a cell holds, 1500 twips (100 pixels) wide.
        grid.hostedGrid()->setTextMatrix(1, CaseCount + 1, QString(40000, QLatin1Char('w')));
        grid.hostedGrid()->setColWidth(CaseCount + 1, 1500);
        const QString path = m_dir.filePath(QStringLiteral("grid.xlsx"));
        grid.ExportToXlsx(path);

        QProcess reader;
        reader.start(QStringLiteral("/usr/bin/python3"),
                     {QStringLiteral(VEMO_SOURCE_DIR "/tests/grid/read_xlsx.py"), path});
        QVERIFY(reader.waitForFinished(30000));
        // Exit status 1 with ModuleNotFoundError: no openpyxl; the sheet tests skip.
        const QByteArray errors = reader.readAllStandardError();
        if (errors.contains("No module named 'openpyxl'"))
            return;
        QVERIFY2(reader.exitCode() == 0, errors.constData());
        m_sheet = QJsonDocument::fromJson(reader.readAllStandardOutput()).object();
    }

    void cells_data()
    {
        QTest::addColumn<int>("col");
        for (int c = 1; c <= CaseCount; ++c)
            QTest::newRow(Cases[c - 1].tag) << c;
    }

    void cells()
    {
        if (m_sheet.isEmpty())
            QSKIP("/usr/bin/python3 with openpyxl (Debian package python3-openpyxl) is missing");
        QFETCH(int, col);
        const QJsonObject cells = m_sheet[QLatin1String("cells")].toObject();
        // Grid column 1 is sheet column A; the fixed row is the bold header.
        QCOMPARE(cells[column(col - 1) + u'1'].toArray().first().toString(),
                 QStringLiteral("表头%1").arg(col));
        QCOMPARE(cells[column(col - 1) + u'2'].toArray(),
                 QJsonDocument::fromJson(Cases[col - 1].read).array());
    }

    void sheet()
    {
        if (m_sheet.isEmpty())
            QSKIP("/usr/bin/python3 with openpyxl (Debian package python3-openpyxl) is missing");
        const QString last = column(CaseCount);
        QCOMPARE(m_sheet[QLatin1String("cells")][last + u'2'][0].toString().size(), 32767);
        QCOMPARE(m_sheet[QLatin1String("bold")].toArray().size(), CaseCount);
        QCOMPARE(m_sheet[QLatin1String("bold")][0], QJsonValue(QStringLiteral("A1")));
        QCOMPARE(m_sheet[QLatin1String("freeze")], QJsonValue(QStringLiteral("A2")));
        // 1500 twips come back as 100 pixels.
        QCOMPARE(qRound(m_sheet[QLatin1String("widths")][last].toDouble() * 7), 100);
    }

    void csv()
    {
        VemoGrid grid;
        grid.setCols(4);
        grid.setRows(3);
        grid.setColType(2, eCheckBox);
        const QStringList texts = {"#", "名称",       "ok", "note", "1", "a,b",
                                   ".", "say \"hi\"", "2",  "x\ny", "",  "cr\r"};
        for (int i = 0; i < texts.size(); ++i)
            grid.hostedGrid()->setTextMatrix(i / 4, i % 4, texts.at(i));
        const QString path = m_dir.filePath(QStringLiteral("grid.csv"));
        grid.ExportToCsv(path);

        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("\xEF\xBB\xBF"
                                            "名称,ok,note\r\n"
                                            "\"a,b\",TRUE,\"say \"\"hi\"\"\"\r\n"
                                            "\"x\ny\",FALSE,\"cr\r\"\r\n"));
    }

    void unwritableFile_data()
    {
        QTest::addColumn<bool>("xlsx");
        QTest::newRow("xlsx") << true;
        QTest::newRow("csv") << false;
    }

    void unwritableFile()
    {
        QFETCH(bool, xlsx);
        VemoGrid grid;
        const QString path = m_dir.filePath(QStringLiteral("missing/grid"));
        try {
            xlsx ? grid.ExportToXlsx(path) : grid.ExportToCsv(path);
            QFAIL("no error");
        } catch (const VemoError& error) {
            QCOMPARE(error.number(), qint32(VemoError::PathFileAccessError));
            QVERIFY2(error.description().contains(path), qPrintable(error.description()));
        }
    }

private:
    QTemporaryDir m_dir;
    QJsonObject m_sheet;
};

QTEST_MAIN(tst_ExportXlsx)
#include "tst_export_xlsx.moc"
