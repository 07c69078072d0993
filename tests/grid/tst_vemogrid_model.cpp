// SPDX-License-Identifier: MIT
// Random row additions, removals, typed writes, resizes, FormatStrings, sorts, Clear and save/load
// checked step by step against a plain model. Replay: VEMO_MODEL_SEED=<n> VEMO_MODEL_STEPS=<step>.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/MemoryPropertyBag.h>
#include <VemoGridLib/Messages.h>
#include <VemoGridLib/VbConversion.h>
#include <VemoGridLib/VbDateTime.h>
#include <VemoGridLib/VbFormat.h>
#include <VemoGridLib/VemoError.h>
#include <VemoGridLib/VemoGrid.h>

#include "VemoTestSupport.h"

#include <QTest>

#include <algorithm>
#include <memory>
#include <random>

using namespace VemoGridLib;

namespace {

const QString Checked = QStringLiteral(".");

struct ColumnModel
{
    VemoGridColType type = eTextBox;
    bool autoAdd = false;
    VemoSortTypeConstants sortType = VemoSortNone;
    QString format;
};

/// Raw cell texts (row 0 the header, column 0 the fixed column), the columns and settings.
struct GridModel
{
    QList<QStringList> cells{QStringList(2), QStringList(2)};
    QList<ColumnModel> columns = QList<ColumnModel>(2);
    int cols = 2;
    int current = 1;
    int runningNumber = 1;
    int lastSorted = -1;
    bool ascending = true;
    bool nullLine = true;
    QString formatString;

    int rows() const { return int(cells.size()); }
    int typedCols() const { return std::min(cols, int(columns.size())); }
    VemoGridColType typeOf(int c) const { return c < columns.size() ? columns[c].type : eTextBox; }

    QString shown(int r, int c) const // a check box reads "True" for the exact marker only
    {
        return typeOf(c) != eCheckBox ? cells[r][c] : cells[r][c] == Checked ? "True" : "False";
    }

    void resize(int newRows, int newCols)
    {
        cells.resize(newRows);
        for (QStringList& row : cells)
            row.resize(newCols);
        cols = newCols;
    }

    void numberFrom(int row) // the colouring pass numbers empty AutoAdd cells with their row
    {
        for (int c = 1; c < typedCols(); ++c) {
            for (int r = std::max(row, 1); columns[c].autoAdd && r < rows(); ++r)
                cells[r][c] = cells[r][c].isEmpty() ? QString::number(r) : cells[r][c];
        }
    }

    /// False when the empty-line rule refuses: an empty current row (an unchecked box is empty).
    bool addItem(const QString& item, int index)
    {
        bool empty = true;
        for (int c = 1; c < cols; ++c)
            empty &=
                typeOf(c) == eCheckBox ? cells[current][c] != Checked : cells[current][c].isEmpty();
        if (empty && !nullLine)
            return false;
        const int newRow = index < 1 ? rows() : index;
        QStringList fields = item.split(u'\t').mid(0, cols);
        fields.resize(cols);
        cells.insert(newRow, fields);
        for (int c = 1; c < typedCols(); ++c)
            if (columns[c].type != eCheckBox && columns[c].autoAdd && fields[c].isEmpty())
                cells[newRow][c] = QString::number(runningNumber++);
        numberFrom(newRow);
        current = newRow;
        return true;
    }

    void removeItem(int index)
    {
        if (rows() == 2)
            return clear();
        cells.removeAt(index);
        numberFrom(index);
        lastSorted = -1;
        current = std::min(index, rows() - 1);
    }

    void applyFormat() // header texts; more columns when it names more
    {
        const QStringList segments = formatString.split(u'|');
        if (formatString.isEmpty())
            return;
        if (segments.size() > cols)
            resize(rows(), int(segments.size()));
        for (int c = 0; c < segments.size(); ++c) {
            const bool aligned =
                !segments[c].isEmpty() && QStringLiteral("<^>").contains(segments[c][0]);
            cells[0][c] = segments[c].mid(aligned ? 1 : 0).trimmed();
        }
    }

    void clear()
    {
        for (QStringList& row : cells)
            row.fill(QString());
        applyFormat();
        resize(2, cols);
        columns.resize(cols);
        current = 1;
        lastSorted = -1;
        numberFrom(1);
    }

    void setRows(int n)
    {
        const bool hadDataRows = rows() > 1;
        resize(n, cols);
        current = !hadDataRows && n > 1 ? 1 : std::min(current, n - 1);
        numberFrom(1);
    }

    void write(int r, int c, const QString& value)
    {
        const ColumnModel& column = columns[c];
        if (column.type == eCheckBox) {
            if (value == u"0" || value == u"False" || value == u"-1" || value == u"True")
                cells[r][c] = value == u"-1" || value == u"True" ? Checked : QStringLiteral("`");
        } else if (column.type != eCalendar) {
            cells[r][c] = value;
        } else if (vb::IsDate(value)) {
            cells[r][c] =
                column.format.isEmpty() ? value : vb::Format(vb::CDate(value), column.format);
        }
    }

    void reload() // only sizes, FormatString and NullLine are saved
    {
        cells = QList<QStringList>(rows(), QStringList(cols));
        applyFormat();
        columns = QList<ColumnModel>(cols);
        runningNumber = 1;
        lastSorted = -1;
        current = rows() > 1 ? 1 : 0;
    }

    void sort(int col, VemoGridSortMode direction);
};

/// Below 0, 0 or above 0 as `a` sorts before, with or after `b` under `type`.
int compareCells(VemoSortTypeConstants type, const QString& a, const QString& b)
{
    const auto number = [](const QString& text) {
        return vb::NumericValue(text).value_or(0);
    };
    // Generic: empty texts first, then numbers by value, then other texts by code unit.
    const auto rank = [](const QString& t) {
        return t.isEmpty() ? 0 : vb::NumericValue(t) ? 1 : 2;
    };
    const auto dateKey = [](const QString& t) {
        return vb::Format(t, "yyyymmddHhNnSs").toLower();
    };
    if (type == VemoSortNumeric || type == VemoSortCurrency ||
        (type == VemoSortGeneric && rank(a) == 1 && rank(b) == 1))
        return int(number(a) > number(b)) - int(number(a) < number(b));
    if (type == VemoSortGeneric)
        return rank(a) != rank(b) ? rank(a) - rank(b) : a.compare(b);
    if (type == VemoSortDateTime)
        return dateKey(a).compare(dateKey(b));
    const int folded = a.toLower().compare(b.toLower());
    // Case-sensitive: texts equal but for case put lower case first.
    return folded != 0 || type == VemoSortStringNoCase ? folded : b.compare(a);
}

void GridModel::sort(int col, VemoGridSortMode direction)
{
    if (col < 1)
        return;
    ascending =
        direction == SortNone ? lastSorted != col || !ascending : direction == SortAscending;
    lastSorted = col;
    const VemoSortTypeConstants type = columns[col].sortType;
    std::stable_sort(
        cells.begin() + 1, cells.end(), [&](const QStringList& a, const QStringList& b) {
            const int result = type == VemoSortNone ? 0 : compareCells(type, a[col], b[col]);
            return ascending ? result < 0 : result > 0;
        });
    numberFrom(1);
}

QStringList listOf(const char* values)
{
    return QString::fromLatin1(values).split(u'|');
}

/// Values by column type: texts sharing a 16-character prefix, signed and grouped numbers, dates
/// in several forms, an impossible day and non-dates.
const QStringList TextValues =
    listOf("apple|Apple|APPLE|pear|Pear|b|B|a|10|9|-2|1a|shared-prefix-long|"
           "shared-prefix-long-1|shared-prefix-long-2|SHARED-PREFIX-LONG-1");
const QStringList NumberValues = listOf("0|1|-1|12|9|10|2.5|-3.75|100|0.5|1000000|abc|1,234.5");
const QStringList CheckValues = listOf(".|`|x|0|-1|True|False|yes|true| . ");
const QStringList DateValues =
    listOf("2024-01-05|2024-02-03|2024-01-20 08:05|2023-12-31|2024/1/5|2024-03-07 13:45|"
           "2024-02-30|1999-12-31 23:59:59|Jan 5, 2024|5/1/2024|abc");
const QList<QStringList> ValuesByType = {TextValues,   CheckValues,  TextValues,
                                         DateValues,   TextValues,   TextValues,
                                         NumberValues, NumberValues, NumberValues};
/// The sort type that suits a column type's values; 0 for texts (any text sort).
const QList<int> NaturalSort = {
    0, 0, 0, VemoSortDateTime, 0, 0, VemoSortCurrency, VemoSortNumeric, VemoSortNumeric};
const QStringList Headers = listOf("No|<Name|> Qty |Price|^Date|Done|<Memo|");
const QStringList DateFormats = listOf("|yyyy-mm-dd|dd/mm/yyyy|dd mmm yyyy");
const QList<VemoGridColType> ColumnTypes = {eTextBox, eNumeric,  eCurrency,
                                            eLong,    eCalendar, eCheckBox};

QString quoted(QString text)
{
    return u'"' + text.replace(u'\t', QLatin1String("\\t")) + u'"';
}

class ModelRun
{
public:
    explicit ModelRun(quint32 seed)
        : m_rng(seed)
        , m_previousHandler(setMessageHandler([this](const Message&) { ++m_messages; }))
    {}
    ~ModelRun() { setMessageHandler(m_previousHandler); }

    /// The first difference from the model (`failedStep` set), or an empty text.
    QString run(int steps)
    {
        for (m_step = 0; m_step <= steps && m_failure.isEmpty(); ++m_step) {
            try {
                m_step == 0 ? setUp() : randomStep();
            } catch (const VemoError& error) {
                m_failure = QStringLiteral("error %1 ").arg(error.number()) + error.description();
            }
            if (m_failure.isEmpty())
                m_failure = difference();
        }
        failedStep = m_step - 1;
        return m_failure;
    }

    QStringList log;
    int failedStep = 0;

private:
    quint32 pick(quint32 n) { return m_rng() % n; }
    template <typename T>
    const T& pickFrom(const QList<T>& list)
    {
        return list[pick(list.size())];
    }
    void note(const QString& what) { log << QStringLiteral("%1: ").arg(m_step) + what; }

    QString valueFor(int c)
    {
        return pickFrom(ValuesByType[pick(10) ? m_model.typeOf(c) : pickFrom(ColumnTypes)]);
    }

    VemoSortTypeConstants sortTypeFor(VemoGridColType type)
    {
        const int natural = NaturalSort[type];
        return VemoSortTypeConstants(pick(2) ? pick(7) : natural ? natural : 1 + pick(4));
    }

    void configure(int c, VemoGridColType type, bool autoAdd, VemoSortTypeConstants sortType,
                   const QString& dateFormat)
    {
        note(QString::asprintf("Column %d: type %d, AutoAdd %d, SortType %d, ", c, type, autoAdd,
                               sortType) +
             quoted(dateFormat));
        m_grid->setColType(c, type);
        m_grid->Column(c)->setAutoAdd(autoAdd);
        m_grid->Column(c)->setSortType(sortType);
        if (type == eCalendar)
            m_grid->Column(c)->setFormatString(dateFormat);
        ColumnModel& column = m_model.columns[c];
        const QString format = type == eCurrency ? QStringLiteral("#,##0.00") : column.format;
        column = {type, autoAdd, sortType, type == eCalendar ? dateFormat : format};
    }

    void setUp()
    {
        resize(false, 7);
        for (int c = 1; c < 7; ++c)
            configure(c, ColumnTypes[c - 1], c == 1, VemoSortNone, DateFormats[1]);
    }

    void resize(bool ofRows, int n)
    {
        note(QLatin1String(ofRows ? "Rows " : "Cols ") + QString::number(n));
        if (ofRows) {
            m_grid->setRows(n);
            m_model.setRows(n);
        } else {
            m_grid->setCols(n);
            m_model.resize(m_model.rows(), n);
            m_model.columns.resize(n);
        }
    }

    void randomStep()
    {
        const quint32 roll = pick(100);
        const int rows = m_model.rows();
        const int typed = m_model.typedCols();
        if (roll < 28) {
            QStringList fields;
            for (int c = 0, n = int(pick(quint32(m_model.cols + 2))); c < n; ++c)
                fields << (pick(5) < (c == 0 ? 4 : 2) ? QString() : valueFor(c));
            const QString item = fields.join(u'\t');
            const int index = pick(2) ? 0 : 1 + int(pick(quint32(rows)));
            note(QStringLiteral("AddItem(%1, %2)").arg(quoted(item)).arg(index));
            const int messagesBefore = m_messages;
            m_grid->AddItem(item, index);
            if (m_messages != messagesBefore + (m_model.addItem(item, index) ? 0 : 1))
                m_failure = QStringLiteral("%1 message(s) shown").arg(m_messages - messagesBefore);
        } else if (roll < 50 && rows > 1) {
            const int r = 1 + int(pick(quint32(rows - 1)));
            const int c = int(pick(quint32(typed)));
            const QString value = valueFor(c);
            note(QStringLiteral("TextMatrix(%1, %2) = %3").arg(r).arg(c).arg(quoted(value)));
            m_grid->setTextMatrix(r, c, value);
            m_model.write(r, c, value);
        } else if (roll < 60 && rows > 1) {
            // Index 0 removes the marked row: none here.
            const int index = pick(8) == 0 ? 0 : 1 + int(pick(quint32(rows - 1)));
            note(QStringLiteral("RemoveItem(%1)").arg(index));
            m_grid->RemoveItem(index);
            if (index > 0)
                m_model.removeItem(index);
        } else if (roll < 74) {
            const int c = int(pick(quint32(typed)));
            const auto direction = VemoGridSortMode(pick(3));
            if (c > 0 && pick(10) < 7) {
                const ColumnModel column = m_model.columns[c];
                configure(c, column.type, column.autoAdd, sortTypeFor(column.type), column.format);
            }
            note(QStringLiteral("Sort(%1, %2)").arg(c).arg(int(direction)));
            m_grid->Sort(c, direction);
            m_model.sort(c, direction);
        } else if (roll < 81 && typed > 1) {
            const VemoGridColType type = pickFrom(ColumnTypes);
            configure(1 + int(pick(quint32(typed - 1))), type, pick(5) == 0, sortTypeFor(type),
                      pickFrom(DateFormats));
        } else if (roll < 89) {
            resize(roll < 85, 1 + int(pick(roll < 85 ? 8 : 7)));
        } else if (roll < 92) {
            QStringList segments;
            for (int i = 0, n = 1 + int(pick(7)); i < n; ++i)
                segments << pickFrom(Headers);
            m_model.formatString = segments.join(u'|');
            note(QStringLiteral("FormatString %1").arg(quoted(m_model.formatString)));
            m_grid->setFormatString(m_model.formatString);
            m_model.applyFormat();
            m_model.columns.resize(m_model.cols);
        } else if (roll < 96) {
            m_model.nullLine = pick(2);
            note(QStringLiteral("NullLine %1").arg(m_model.nullLine));
            m_grid->setNullLine(m_model.nullLine);
        } else if (roll < 98) {
            note(QStringLiteral("Clear"));
            m_grid->Clear();
            m_model.clear();
        } else {
            saveAndLoad();
        }
    }

    /// Carries on with a new grid read from the saved bag's JSON form, which must save alike.
    void saveAndLoad()
    {
        note(QStringLiteral("save and load"));
        MemoryPropertyBag bag;
        m_grid->WriteProperties(bag);
        QString error;
        const MemoryPropertyBag restored = MemoryPropertyBag::fromJson(bag.toJson(), &error);
        if (!error.isEmpty() || restored.toJson() != bag.toJson())
            m_failure = QStringLiteral("the bag changed through JSON: ") + error;
        m_grid = std::make_unique<VemoGrid>();
        m_grid->ReadProperties(restored);
        m_model.reload();
        MemoryPropertyBag again;
        m_grid->WriteProperties(again);
        // Three colours' read and write defaults differ; Cols grows with the FormatString.
        const QStringList mayDiffer = {"BackColorSel", "ForeColorSel", "ForeColorFixed", "Cols"};
        for (const QString& name : restored.names() + again.names()) {
            if (!mayDiffer.contains(name) && restored.value(name) != again.value(name))
                m_failure = QStringLiteral("the loaded grid saves another ") + name;
        }
    }

    QString difference() const
    {
        const VemoGrid& g = *m_grid;
        const QString actual = QString::asprintf("Rows %d, Cols %d, Row %d, NullLine %d, ",
                                                 g.Rows(), g.Cols(), g.Row(), g.NullLine()) +
                               quoted(g.FormatString());
        const QString expected =
            QString::asprintf("Rows %d, Cols %d, Row %d, NullLine %d, ", m_model.rows(),
                              m_model.cols, m_model.current, m_model.nullLine) +
            quoted(m_model.formatString);
        if (actual != expected)
            return QStringLiteral("grid: %1; model: %2").arg(actual, expected);
        for (int r = 0; r < m_model.rows(); ++r) {
            for (int c = 0; c < m_model.cols; ++c) {
                if (g.TextMatrix(r, c) != m_model.shown(r, c))
                    return QStringLiteral("cell (%1, %2): grid %3, model %4")
                        .arg(r)
                        .arg(c)
                        .arg(quoted(g.TextMatrix(r, c)), quoted(m_model.shown(r, c)));
            }
        }
        return {};
    }

    std::mt19937 m_rng;
    MessageHandler m_previousHandler;
    std::unique_ptr<VemoGrid> m_grid = std::make_unique<VemoGrid>();
    GridModel m_model;
    int m_messages = 0;
    int m_step = 0;
    QString m_failure;
};

quint32 fromEnvironment(const char* name, quint32 fallback)
{
    bool ok = false;
    const quint32 value = qEnvironmentVariable(name).toUInt(&ok);
    return ok ? value : fallback;
}

} // namespace

class tst_VemoGridModel : public QObject
{
    Q_OBJECT

    const VemoTest::ScopedLocale m_locale{"en_US.UTF-8"}; // the values above are en_US ones

private Q_SLOTS:
    void randomOperationsMatchTheModel()
    {
        const quint32 seed = fromEnvironment("VEMO_MODEL_SEED", 20261124);
        ModelRun run(seed);
        const QString failure = run.run(int(fromEnvironment("VEMO_MODEL_STEPS", 8000)));
        if (failure.isEmpty())
            return;
        qInfo().noquote() << "operation log:\n" + run.log.join(u'\n');
        QFAIL(qPrintable(QStringLiteral("seed %1, step %2: %3 (replay with VEMO_MODEL_SEED=%1 "
                                        "VEMO_MODEL_STEPS=%2)")
                             .arg(seed)
                             .arg(run.failedStep)
                             .arg(failure)));
    }
};

QTEST_MAIN(tst_VemoGridModel)
#include "tst_vemogrid_model.moc"
