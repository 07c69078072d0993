// SPDX-License-Identifier: MIT
// VemoGrid's bulk operations against their peers, all measured in
// one run: Rows with its colouring and check-box passes against colouring a FlexGrid cell by
// cell, Sort for every SortType against QTableWidget's numeric sort, ExportToExcel against one
// buffered write of the same bytes, and AddItem against QTableWidget's row-by-row insertion.
// The ratios and the targets are printed after the Google Benchmark table.
#include <VemoGridLib/Column.h>
#include "flexgrid/FlexCellStore_p.h"
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include <VemoGridLib/OleColor.h>
#include <VemoGridLib/VemoEnums.h>

#include "BenchProgram.h"
#include "RatioReporter.h"
#include "ThreadCpuTimer.h"
#include "flexgrid/FlexGrid_p.h"

#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QDate>
#include <QFile>
#include <QTableWidget>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace {

using VemoGridLib::FlexGrid;
using VemoGridLib::OleColor;
using VemoGridLib::VemoGrid;

/// VemoGrid's column count with its fixed row-header column 0 included: 9 data columns.
constexpr int gridCols = 10;
constexpr int bigRows = 1'000'000;
constexpr int exportDataRows = 16'384;
constexpr int addedRows = 100'000;

// The typed columns of the Rows and AddItem grids; every other data column is text.
constexpr int checkBoxCol = 2;
constexpr int lockedCol = 4;
constexpr int autoAddCol = 6;

// VemoGrid's default band colours, which the FlexGrid peer paints by hand.
constexpr OleColor evenBandColor = 0xFFFFFF;
constexpr OleColor oddBandColor = 0xBFFFFF;
constexpr OleColor readOnlyColor = 0xDFDFC0;

// ---- the data every peer receives ------------------------------------------------------------

QString cellText(int row, int col)
{
    return QStringLiteral("R%1C%2").arg(row).arg(col);
}

QString headerText(int col)
{
    return QStringLiteral("Column %1").arg(col);
}

/// "1,234,567" for 1234567, as a user types amounts into a currency column.
QString groupedThousands(long long value)
{
    QString digits = QString::number(value);
    for (qsizetype at = digits.size() - 3; at > 0; at -= 3)
        digits.insert(at, QLatin1Char(','));
    return digits;
}

QString currencyText(long long cents)
{
    return groupedThousands(cents / 100) + QLatin1Char('.') +
           QString::number(cents % 100).rightJustified(2, QLatin1Char('0'));
}

/// Sort keys with two decimals, so that a text and its double say exactly the same number.
std::vector<double> randomAmounts(int count, std::uint64_t seed)
{
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> distribution(0.0, 1e6);
    std::vector<double> amounts(std::size_t(count), 0.0);
    for (double& amount : amounts)
        amount = std::round(distribution(random) * 100.0) / 100.0;
    return amounts;
}

/// Six to twelve letters of mixed case, so that the case-sensitive and case-insensitive sorts
/// both have case to decide.
std::vector<QString> randomWords(int count, std::uint64_t seed)
{
    std::mt19937_64 random(seed);
    std::uniform_int_distribution<int> length(6, 12);
    std::uniform_int_distribution<int> letter(0, 51);
    std::vector<QString> words;
    words.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i) {
        QString word(length(random), Qt::Uninitialized);
        for (QChar& ch : word) {
            const int l = letter(random);
            ch = QLatin1Char(char(l < 26 ? 'a' + l : 'A' + l - 26));
        }
        words.push_back(std::move(word));
    }
    return words;
}

/// "2024-01-05"-style dates from 1990 to 2030.
std::vector<QString> randomDates(int count, std::uint64_t seed)
{
    std::mt19937_64 random(seed);
    const qint64 firstDay = QDate(1990, 1, 1).toJulianDay();
    const qint64 lastDay = QDate(2030, 12, 31).toJulianDay();
    std::uniform_int_distribution<qint64> day(firstDay, lastDay);
    std::vector<QString> dates;
    dates.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i) {
        const QDate date = QDate::fromJulianDay(day(random));
        char text[16];
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.year(), date.month(), date.day());
        dates.push_back(QString::fromLatin1(text));
    }
    return dates;
}

// ---- target 1: Rows with the colouring and check-box passes ------------------------------------

/// The grid of targets 1 and 4: one check-box, one locked and one auto-numbered column among
/// text columns, as a data-entry form would have them.
void setUpTypedColumns(VemoGrid& grid)
{
    grid.setCols(gridCols);
    grid.setColType(checkBoxCol, VemoGridLib::eCheckBox);
    grid.Column(lockedCol)->setLocked(true);
    grid.Column(autoAddCol)->setAutoAdd(true);
}

/// The colour VemoGrid's colouring pass gives a data cell of the typed-column grid.
OleColor expectedCellColour(int row, int col)
{
    if (col == lockedCol || col == autoAddCol)
        return readOnlyColor;
    return (row - 1) % 2 == 0 ? evenBandColor : oddBandColor;
}

void vemoGridSetRows(benchmark::State& state)
{
    for (auto _ : state) {
        auto grid = std::make_unique<VemoGrid>();
        setUpTypedColumns(*grid);
        const ThreadCpuTimer timer;
        grid->setRows(bigRows);
        state.SetIterationTime(timer.elapsedSeconds());
        if (grid->Rows() != bigRows || grid->TextMatrix(bigRows - 1, autoAddCol).toInt() == 0) {
            state.SkipWithError("the rows were not added and numbered");
            break;
        }
    }
}

/// The floor of target 1: the same cells given the same colours in a bare FlexGrid, the way VB
/// code does it (current cell, then CellBackColor), with Redraw off as the colouring pass has it.
void flexGridColourCells(benchmark::State& state)
{
    for (auto _ : state) {
        auto grid = std::make_unique<FlexGrid>();
        grid->setCols(gridCols);
        grid->setRows(bigRows);
        const ThreadCpuTimer timer;
        grid->setRedraw(false);
        for (int row = 1; row < bigRows; ++row) {
            grid->setRow(row);
            for (int col = 1; col < gridCols; ++col) {
                grid->setCol(col);
                grid->setCellBackColor(expectedCellColour(row, col));
            }
        }
        grid->setRedraw(true);
        state.SetIterationTime(timer.elapsedSeconds());
    }
}

/// Not a target: how much of VemoGrid's Rows is the hosted grid growing to 1M rows.
void flexGridSetRows(benchmark::State& state)
{
    for (auto _ : state) {
        auto grid = std::make_unique<FlexGrid>();
        grid->setCols(gridCols);
        const ThreadCpuTimer timer;
        grid->setRows(bigRows);
        state.SetIterationTime(timer.elapsedSeconds());
    }
}

// ---- target 2: Sort for every SortType ----------------------------------------------------------

struct SortCase
{
    const char* name;
    VemoGridLib::VemoSortTypeConstants sortType;
    VemoGridLib::VemoGridColType colType;
    int col;
};

constexpr std::array<SortCase, 6> sortCases = {{
    {"Generic", VemoGridLib::VemoSortGeneric, VemoGridLib::eTextBox, 1},
    {"Numeric", VemoGridLib::VemoSortNumeric, VemoGridLib::eNumeric, 2},
    {"StringNoCase", VemoGridLib::VemoSortStringNoCase, VemoGridLib::eTextBox, 3},
    {"String", VemoGridLib::VemoSortString, VemoGridLib::eTextBox, 4},
    {"DateTime", VemoGridLib::VemoSortDateTime, VemoGridLib::eCalendar, 5},
    {"Currency", VemoGridLib::VemoSortCurrency, VemoGridLib::eCurrency, 6},
}};

/// The numbers that the Numeric column holds as texts and QTableWidget as doubles.
const std::vector<double>& numericKeys()
{
    static const std::vector<double> keys = randomAmounts(bigRows, 20240601);
    return keys;
}

/// The unsorted key texts of one sort case, row by row. The generic column mixes numbers with
/// words (every tenth row), so both of its comparisons are exercised.
std::vector<QString> sortKeyTexts(const SortCase& sortCase)
{
    std::vector<QString> texts;
    texts.reserve(bigRows);
    switch (sortCase.sortType) {
    case VemoGridLib::VemoSortGeneric: {
        const std::vector<double> numbers = randomAmounts(bigRows, 7);
        const std::vector<QString> words = randomWords(bigRows / 10 + 1, 8);
        for (int row = 0; row < bigRows; ++row)
            texts.push_back(row % 10 == 9 ? words[std::size_t(row / 10)]
                                          : QString::number(numbers[std::size_t(row)], 'f', 2));
        break;
    }
    case VemoGridLib::VemoSortNumeric:
        for (const double key : numericKeys())
            texts.push_back(QString::number(key, 'f', 2));
        break;
    case VemoGridLib::VemoSortStringNoCase:
        return randomWords(bigRows, 11);
    case VemoGridLib::VemoSortString:
        return randomWords(bigRows, 12);
    case VemoGridLib::VemoSortDateTime:
        return randomDates(bigRows, 13);
    case VemoGridLib::VemoSortCurrency: {
        std::mt19937_64 random(14);
        std::uniform_int_distribution<long long> cents(0, 99'999'999);
        for (int row = 0; row < bigRows; ++row)
            texts.push_back(currencyText(cents(random)));
        break;
    }
    default:
        break;
    }
    return texts;
}

/// One 1M-row grid holding every sort case's keys in its own column; built once for all the
/// VemoGrid sort benchmarks, since filling 10M cells takes longer than all of their sorts.
struct SortFixture
{
    VemoGrid grid;
    std::array<std::vector<QString>, sortCases.size()> keys;

    SortFixture()
    {
        for (std::size_t i = 0; i < sortCases.size(); ++i)
            keys[i] = sortKeyTexts(sortCases[i]);
        grid.setCols(gridCols);
        for (const SortCase& sortCase : sortCases) {
            grid.setColType(sortCase.col, sortCase.colType);
            grid.Column(sortCase.col)->setSortType(sortCase.sortType);
        }
        grid.setRows(bigRows + 1);
        grid.setRedraw(false);
        for (int col = 1; col < gridCols; ++col)
            grid.setTextMatrix(0, col, headerText(col));
        for (int row = 1; row <= bigRows; ++row) {
            for (int col = int(sortCases.size()) + 1; col < gridCols; ++col)
                grid.setTextMatrix(row, col, cellText(row, col));
        }
        for (std::size_t i = 0; i < sortCases.size(); ++i)
            refill(i);
        grid.setRedraw(true);
    }

    /// Writes case `i`'s keys in their unsorted order into its column, whatever order the
    /// rows are in after earlier sorts.
    void refill(std::size_t i)
    {
        const std::vector<QString>& texts = keys[i];
        for (int row = 1; row <= bigRows; ++row)
            grid.setTextMatrix(row, sortCases[i].col, texts[std::size_t(row - 1)]);
    }
};

std::unique_ptr<SortFixture> sortFixture;

SortFixture& sharedSortFixture()
{
    if (!sortFixture)
        sortFixture = std::make_unique<SortFixture>();
    return *sortFixture;
}

double numberOfText(QString text)
{
    return text.remove(QLatin1Char(',')).toDouble();
}

bool isPlainNumber(const QString& text)
{
    bool ok = false;
    text.toDouble(&ok);
    return ok;
}

/// Whether `before` may precede `after` in an ascending sort of the case's type. Checks the
/// order the type promises, not the tie-breaks of the hosted sort.
bool mayPrecede(VemoGridLib::VemoSortTypeConstants type, const QString& before,
                const QString& after)
{
    switch (type) {
    case VemoGridLib::VemoSortGeneric: {
        const bool beforeNumber = isPlainNumber(before);
        const bool afterNumber = isPlainNumber(after);
        if (beforeNumber != afterNumber)
            return beforeNumber;
        return beforeNumber ? before.toDouble() <= after.toDouble() : before <= after;
    }
    case VemoGridLib::VemoSortNumeric:
    case VemoGridLib::VemoSortCurrency:
        return numberOfText(before) <= numberOfText(after);
    case VemoGridLib::VemoSortDateTime:
        // ISO dates order as texts the way they order as days.
        return before <= after;
    case VemoGridLib::VemoSortStringNoCase:
    case VemoGridLib::VemoSortString:
        return before.compare(after, Qt::CaseInsensitive) <= 0;
    default:
        return true;
    }
}

bool isSortedAscending(const VemoGrid& grid, const SortCase& sortCase)
{
    const FlexGrid& hosted = *grid.hostedGrid();
    QString previous = hosted.TextMatrix(1, sortCase.col);
    for (int row = 2; row <= bigRows; ++row) {
        QString text = hosted.TextMatrix(row, sortCase.col);
        if (!mayPrecede(sortCase.sortType, previous, text))
            return false;
        previous = std::move(text);
    }
    return true;
}

void vemoGridSort(benchmark::State& state, std::size_t caseIndex)
{
    SortFixture& fixture = sharedSortFixture();
    const SortCase& sortCase = sortCases[caseIndex];
    for (auto _ : state) {
        fixture.refill(caseIndex);
        const ThreadCpuTimer timer;
        fixture.grid.Sort(sortCase.col, VemoGridLib::SortAscending);
        state.SetIterationTime(timer.elapsedSeconds());
        if (!isSortedAscending(fixture.grid, sortCase)) {
            state.SkipWithError("the rows are not in ascending key order after the sort");
            break;
        }
    }
}

/// The peer of target 2: a QTableWidget of the same 1M rows x 10 columns whose key items hold
/// doubles in the display role, which is what makes sortItems compare numerically. Its last
/// column numbers the rows in fill order (as VemoGrid's auto-numbered column would).
void tableWidgetNumericSort(benchmark::State& state)
{
    constexpr int keyCol = 0;
    constexpr int fillOrderCol = gridCols - 1;
    // VemoGrid's sorts are done; their 10M cells need not share the machine with 10M items.
    sortFixture.reset();
    const std::vector<double>& keys = numericKeys();
    QTableWidget table(bigRows, gridCols);
    for (int row = 0; row < bigRows; ++row) {
        auto* key = new QTableWidgetItem;
        key->setData(Qt::DisplayRole, keys[std::size_t(row)]);
        table.setItem(row, keyCol, key);
        for (int col = 1; col < fillOrderCol; ++col)
            table.setItem(row, col, new QTableWidgetItem(cellText(row + 1, col)));
        auto* fillOrder = new QTableWidgetItem;
        fillOrder->setData(Qt::DisplayRole, row);
        table.setItem(row, fillOrderCol, fillOrder);
    }
    bool sorted = false;
    for (auto _ : state) {
        // Writing the keys afresh is no option: after a sort every item's cached position is
        // stale, and setData then searches all 10M items for each one. Sorting back to the
        // fill order brings back the unsorted keys instead.
        if (sorted)
            table.sortItems(fillOrderCol, Qt::AscendingOrder);
        const ThreadCpuTimer timer;
        table.sortItems(keyCol, Qt::AscendingOrder);
        state.SetIterationTime(timer.elapsedSeconds());
        sorted = true;
        for (int row = 1; row < bigRows; ++row) {
            if (table.item(row, keyCol)->data(Qt::DisplayRole).toDouble() <
                table.item(row - 1, keyCol)->data(Qt::DisplayRole).toDouble()) {
                state.SkipWithError("the rows are not in ascending key order after the sort");
                return;
            }
        }
    }
}

// ---- target 3: ExportToExcel ----------------------------------------------------------------

/// The BIFF2 record kinds the export writes, by the record number that opens each record.
struct RecordCounts
{
    int labels = 0;
    int integers = 0;
    int numbers = 0;
    bool wellFormed = false;
};

/// Walks the BIFF2 records (number, length, data) of an export; the file must end with EOF.
RecordCounts countRecords(const QByteArray& bytes)
{
    RecordCounts counts;
    qsizetype at = 0;
    const auto word = [&bytes](qsizetype offset) {
        return int(uchar(bytes[offset])) | int(uchar(bytes[offset + 1])) << 8;
    };
    while (at + 4 <= bytes.size()) {
        const int record = word(at);
        const int length = word(at + 2);
        at += 4 + length;
        if (record == 0x0004)
            ++counts.labels;
        else if (record == 0x0002)
            ++counts.integers;
        else if (record == 0x0003)
            ++counts.numbers;
        else if (record == 0x000A) {
            counts.wellFormed = at == bytes.size();
            break;
        }
    }
    return counts;
}

constexpr std::array<VemoGridLib::VemoGridColType, gridCols> exportColTypes = {
    VemoGridLib::eTextBox, VemoGridLib::eTextBox,  VemoGridLib::eCurrency, VemoGridLib::eLong,
    VemoGridLib::eNumeric, VemoGridLib::eCheckBox, VemoGridLib::eTextBox,  VemoGridLib::eCurrency,
    VemoGridLib::eLong,    VemoGridLib::eNumeric};

/// Text, currency, long, numeric and check-box columns, twice over, as an order form might
/// have them; every 64th currency and numeric cell is left empty and every 97th long cell holds
/// a note, so the export's LABEL fallbacks are taken too.
void buildExportGrid(VemoGrid& grid)
{
    using namespace VemoGridLib;
    const auto& types = exportColTypes;
    grid.setCols(gridCols);
    for (int col = 1; col < gridCols; ++col)
        grid.setColType(col, types[std::size_t(col)]);
    grid.setRows(exportDataRows + 1);
    grid.setRedraw(false);
    std::mt19937_64 random(99);
    std::uniform_int_distribution<long long> cents(0, 9'999'999);
    std::uniform_int_distribution<int> count(0, 65'535);
    std::uniform_real_distribution<double> measure(-1000.0, 1000.0);
    for (int col = 1; col < gridCols; ++col)
        grid.setTextMatrix(0, col, headerText(col));
    for (int row = 1; row <= exportDataRows; ++row) {
        for (int col = 1; col < gridCols; ++col) {
            QString text;
            switch (types[std::size_t(col)]) {
            case eCurrency:
                if (row % 64 != 0)
                    text = currencyText(cents(random));
                break;
            case eLong:
                text = row % 97 == 0 ? QStringLiteral("n/a") : groupedThousands(count(random));
                break;
            case eNumeric:
                if (row % 64 != 0)
                    text = QString::number(measure(random), 'f', 4);
                break;
            case eCheckBox:
                text = row % 3 == 0 ? QStringLiteral("True") : QStringLiteral("False");
                break;
            default:
                text = cellText(row, col);
            }
            if (!text.isEmpty())
                grid.setTextMatrix(row, col, text);
        }
    }
    grid.setRedraw(true);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void vemoGridExport(benchmark::State& state, const QString& directory)
{
    VemoGrid grid;
    buildExportGrid(grid);
    const QString path = directory + QStringLiteral("/export.xls");
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        grid.ExportToExcel(path);
        state.SetIterationTime(timer.elapsedSeconds());
    }
    const QByteArray bytes = readFile(path);
    const RecordCounts counts = countRecords(bytes);
    if (!counts.wellFormed || counts.numbers == 0 || counts.integers == 0) {
        state.SkipWithError("the export is not a worksheet of labels, integers and numbers");
        return;
    }
    state.counters["file_bytes"] = double(bytes.size());
    state.counters["labels"] = counts.labels;
    state.counters["integers"] = counts.integers;
    state.counters["numbers"] = counts.numbers;
}

/// The floor of target 3: the export's own bytes written with one buffered write. The file is
/// opened the way the export opens its file (read/write, not truncated), so both pay the same
/// open and close and overwrite the same page-cache pages.
void bufferedWrite(benchmark::State& state, const QString& directory)
{
    QByteArray bytes;
    {
        VemoGrid grid;
        buildExportGrid(grid);
        const QString source = directory + QStringLiteral("/reference.xls");
        grid.ExportToExcel(source);
        bytes = readFile(source);
    }
    if (bytes.isEmpty()) {
        state.SkipWithError("the export wrote nothing to copy");
        return;
    }
    const QString path = directory + QStringLiteral("/copy.xls");
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite) || file.write(bytes) != bytes.size()) {
            state.SkipWithError("the copy could not be written");
            return;
        }
        file.close();
        state.SetIterationTime(timer.elapsedSeconds());
    }
    state.counters["file_bytes"] = double(bytes.size());
}

/// The hand-rolled export's output: plain memcpy into memory reserved once, since QByteArray's
/// append would cost more per record than the record takes to build.
class RecordBuffer
{
public:
    void clear() { m_size = 0; }

    void put(const char* data, std::size_t size)
    {
        if (m_size + size > m_bytes.size())
            m_bytes.resize(std::max(m_bytes.size() * 2, m_size + size));
        std::memcpy(m_bytes.data() + m_size, data, size);
        m_size += size;
    }

    QByteArray bytes() const { return QByteArray::fromRawData(m_bytes.data(), qsizetype(m_size)); }

private:
    std::vector<char> m_bytes = std::vector<char>(std::size_t(8) << 20);
    std::size_t m_size = 0;
};

/// Appends one BIFF2 cell record: number, length, row, column, three attribute bytes, data.
void appendRecord(RecordBuffer& out, int record, int row, int col, const char* data, int size)
{
    const int length = 7 + size;
    const char header[11] = {char(record),
                             0,
                             char(length & 0xFF),
                             char(length >> 8),
                             char(row & 0xFF),
                             char(row >> 8),
                             char(col),
                             0,
                             0,
                             0,
                             0};
    out.put(header, sizeof header);
    out.put(data, std::size_t(size));
}

void appendLabel(RecordBuffer& out, int row, int col, QStringView text)
{
    char bytes[256];
    bytes[0] = char(text.size());
    for (qsizetype i = 0; i < text.size(); ++i)
        bytes[i + 1] = char(text[i].unicode());
    appendRecord(out, 0x0004, row, col, bytes, int(text.size()) + 1);
}

/// A plain decimal with optional grouping commas, read without any locale machinery.
bool readDecimal(QStringView text, double& value)
{
    char digits[64];
    int length = 0;
    for (const QChar ch : text.trimmed()) {
        if (ch == u',')
            continue;
        if (length == int(sizeof digits) || ch.unicode() > 0x7F)
            return false;
        digits[length++] = char(ch.unicode());
    }
    const auto result = std::from_chars(digits, digits + length, value);
    return length > 0 && result.ec == std::errc() && result.ptr == digits + length;
}

/// Not a target: the export's records built by hand from the cell store into one buffer (plain
/// ASCII texts, std::from_chars for numbers), then one write. It shows how near the floor of
/// target 3 a cell-by-cell typed export can come at all.
void handRolledExport(benchmark::State& state, const QString& directory)
{
    using namespace VemoGridLib;
    VemoGrid grid;
    buildExportGrid(grid);
    const FlexCellStore& cells = FlexGridPrivate::get(grid.hostedGrid())->store;
    const int rows = grid.Rows();
    const QString path = directory + QStringLiteral("/hand-rolled.xls");
    RecordBuffer out;
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        out.clear();
        out.put("\x09\x00\x04\x00\x02\x00\x0A\x00", 8);
        for (int col = 1; col < gridCols; ++col)
            appendLabel(out, 0, col - 1, cells.textView(0, col));
        for (int col = 1; col < gridCols; ++col) {
            const VemoGridColType type = exportColTypes[std::size_t(col)];
            for (int row = 1; row < rows; ++row) {
                const QStringView text = cells.textView(row, col);
                double number = 0;
                switch (type) {
                case eCheckBox:
                    appendLabel(out, row, col - 1, text == u"." ? u"True" : u"False");
                    break;
                case eLong:
                    if (readDecimal(text, number)) {
                        const auto word = quint16(std::lround(number));
                        const char bytes[2] = {char(word & 0xFF), char(word >> 8)};
                        if (number >= 0 && number <= 65535)
                            appendRecord(out, 0x0002, row, col - 1, bytes, 2);
                    } else if (!text.trimmed().isEmpty()) {
                        appendLabel(out, row, col - 1, text.trimmed());
                    }
                    break;
                case eCurrency:
                case eNumeric:
                    if (readDecimal(text, number))
                        appendRecord(out, 0x0003, row, col - 1,
                                     reinterpret_cast<const char*>(&number), 8);
                    else
                        appendLabel(out, row, col - 1, text.trimmed());
                    break;
                default:
                    appendLabel(out, row, col - 1, text);
                }
            }
        }
        out.put("\x0A\x00\x00\x00", 4);
        const QByteArray bytes = out.bytes();
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite) || file.write(bytes) != bytes.size()) {
            state.SkipWithError("the hand-rolled worksheet could not be written");
            return;
        }
        file.close();
        state.SetIterationTime(timer.elapsedSeconds());
    }
    grid.ExportToExcel(directory + QStringLiteral("/compare.xls"));
    state.counters["same_bytes_as_export"] =
        readFile(directory + QStringLiteral("/compare.xls")) == out.bytes() ? 1.0 : 0.0;
}

/// Not a target: only reading every cell's text, as any export must, with nothing parsed and
/// nothing written. Where this alone takes more than three buffered writes of the file, target 3
/// cannot be met by any cell-by-cell export.
void readCellsOnly(benchmark::State& state)
{
    VemoGrid grid;
    buildExportGrid(grid);
    const VemoGridLib::FlexCellStore& cells =
        VemoGridLib::FlexGridPrivate::get(grid.hostedGrid())->store;
    const int rows = grid.Rows();
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        qsizetype units = 0;
        for (int col = 0; col < gridCols; ++col) {
            for (int row = 0; row < rows; ++row)
                units += cells.textView(row, col).size();
        }
        benchmark::DoNotOptimize(units);
        state.SetIterationTime(timer.elapsedSeconds());
    }
}

// ---- target 4: AddItem ------------------------------------------------------------------------

/// Runs `pass` once, untimed. The first pass in a process grows the heap, page by page, and the
/// later ones reuse it; without this, whichever side runs first would pay for both.
template <typename Pass>
void warmUpHeap(Pass&& pass)
{
    pass();
}

/// Row `row`'s ten cell texts. The check-box column holds the checked and unchecked markers and
/// the auto-numbered column is left empty, so AddItem numbers it.
std::vector<QString> addedRowTexts(int row)
{
    std::vector<QString> texts;
    for (int col = 0; col < gridCols; ++col) {
        if (col == checkBoxCol)
            texts.push_back(row % 2 == 0 ? QStringLiteral(".") : QStringLiteral("`"));
        else if (col == autoAddCol)
            texts.push_back(QString());
        else
            texts.push_back(cellText(row, col));
    }
    return texts;
}

/// Joins a row's texts with TABs, the hosted grid's AddItem format.
QString joinedItem(std::span<const QString> texts)
{
    QString item;
    for (std::size_t col = 0; col < texts.size(); ++col) {
        if (col > 0)
            item += QLatin1Char('\t');
        item += texts[col];
    }
    return item;
}

void vemoGridAddItem(benchmark::State& state, std::span<const QString> cells)
{
    std::vector<QString> items;
    items.reserve(addedRows);
    for (int row = 0; row < addedRows; ++row)
        items.push_back(joinedItem(cells.subspan(std::size_t(row) * gridCols, gridCols)));
    const auto addAll = [&items](VemoGrid& grid) {
        const ThreadCpuTimer timer;
        for (const QString& item : items)
            grid.AddItem(item);
        return timer.elapsedSeconds();
    };
    warmUpHeap([&addAll] {
        VemoGrid grid;
        setUpTypedColumns(grid);
        addAll(grid);
    });
    for (auto _ : state) {
        auto grid = std::make_unique<VemoGrid>();
        setUpTypedColumns(*grid);
        const int rowsBefore = grid->Rows();
        state.SetIterationTime(addAll(*grid));
        if (grid->Rows() != rowsBefore + addedRows ||
            grid->TextMatrix(grid->Rows() - 1, autoAddCol).isEmpty()) {
            state.SkipWithError("the rows were not added and numbered");
            break;
        }
    }
}

void tableWidgetAddRows(benchmark::State& state, std::span<const QString> cells)
{
    const auto addAll = [cells](QTableWidget& table) {
        const ThreadCpuTimer timer;
        for (int row = 0; row < addedRows; ++row) {
            table.insertRow(row);
            for (int col = 0; col < gridCols; ++col)
                table.setItem(row, col,
                              new QTableWidgetItem(cells[std::size_t(row) * gridCols + col]));
        }
        return timer.elapsedSeconds();
    };
    warmUpHeap([&addAll] {
        QTableWidget table(0, gridCols);
        addAll(table);
    });
    for (auto _ : state) {
        auto table = std::make_unique<QTableWidget>(0, gridCols);
        state.SetIterationTime(addAll(*table));
        if (table->rowCount() != addedRows) {
            state.SkipWithError("the rows were not added");
            break;
        }
    }
}

std::vector<QString> addedCells()
{
    std::vector<QString> cells;
    cells.reserve(std::size_t(addedRows) * gridCols);
    for (int row = 0; row < addedRows; ++row) {
        for (QString& text : addedRowTexts(row))
            cells.push_back(std::move(text));
    }
    return cells;
}

// ---- registration -----------------------------------------------------------------------------

constexpr const char* setRowsScenario = "setRows_1Mx10";
constexpr const char* sortScenario = "sort_1M";
constexpr const char* exportScenario = "export_16384x10";
constexpr const char* addItemScenario = "additem_100k";
constexpr const char* vemoGridName = "VemoGrid";
constexpr const char* colourCellsName = "FlexGrid_colour_cells";
constexpr const char* hostedSetRowsName = "FlexGrid_setRows_only";
constexpr const char* tableWidgetName = "QTableWidget";
constexpr const char* tableWidgetSortName = "QTableWidget_numeric";
constexpr const char* bufferedWriteName = "one_buffered_write";
constexpr const char* handRolledExportName = "hand_rolled_records";
constexpr const char* readCellsName = "read_cells_only";

std::string benchmarkName(const std::string& scenario, const std::string& peer)
{
    return scenario + '/' + peer;
}

std::string vemoSortName(const SortCase& sortCase)
{
    return std::string(vemoGridName) + '_' + sortCase.name;
}

void registerBenchmarks(const QString& directory, std::span<const QString> cells)
{
    // AddItem's passes are short enough to repeat: the median of five stands up to this shared
    // machine's slow spells better than one mean.
    constexpr int addItemRepetitions = 5;
    benchmark::RegisterBenchmark(benchmarkName(setRowsScenario, vemoGridName).c_str(),
                                 vemoGridSetRows)
        ->Iterations(3)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(setRowsScenario, colourCellsName).c_str(),
                                 flexGridColourCells)
        ->Iterations(3)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(setRowsScenario, hostedSetRowsName).c_str(),
                                 flexGridSetRows)
        ->Iterations(3)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);

    for (std::size_t i = 0; i < sortCases.size(); ++i) {
        benchmark::RegisterBenchmark(
            benchmarkName(sortScenario, vemoSortName(sortCases[i])).c_str(), vemoGridSort, i)
            ->Iterations(3)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RegisterBenchmark(benchmarkName(sortScenario, tableWidgetSortName).c_str(),
                                 tableWidgetNumericSort)
        ->Iterations(2)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);

    benchmark::RegisterBenchmark(benchmarkName(exportScenario, vemoGridName).c_str(),
                                 vemoGridExport, directory)
        ->MinTime(1.0)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(exportScenario, bufferedWriteName).c_str(),
                                 bufferedWrite, directory)
        ->MinTime(1.0)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);

    benchmark::RegisterBenchmark(benchmarkName(exportScenario, handRolledExportName).c_str(),
                                 handRolledExport, directory)
        ->MinTime(1.0)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(exportScenario, readCellsName).c_str(),
                                 readCellsOnly)
        ->MinTime(1.0)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);

    benchmark::RegisterBenchmark(benchmarkName(addItemScenario, vemoGridName).c_str(),
                                 vemoGridAddItem, cells)
        ->Iterations(3)
        ->Repetitions(addItemRepetitions)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(benchmarkName(addItemScenario, tableWidgetName).c_str(),
                                 tableWidgetAddRows, cells)
        ->Iterations(3)
        ->Repetitions(addItemRepetitions)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

// ---- the summary ----------------------------------------------------------------------------

void printTimes(const RatioReporter& reporter, const std::string& scenario,
                const std::vector<std::string>& peers)
{
    for (const std::string& peer : peers) {
        const double seconds = reporter.seconds(benchmarkName(scenario, peer));
        if (seconds <= 0.0)
            std::printf("  %-26s not measured\n", peer.c_str());
        else
            std::printf("  %-26s %10.3f ms\n", peer.c_str(), seconds * 1e3);
    }
}

void printResults(RatioReporter& reporter)
{
    std::printf("\n==== VemoGrid and its peers, measured in this run (CPU time of the measured "
                "work: the mean of a benchmark's iterations, the median of the means where it "
                "is repeated) ====\n");

    std::printf("\nRows = 1,000,000 on 10 columns (check box, locked, auto-numbered, text):\n");
    printTimes(reporter, setRowsScenario, {vemoGridName, colourCellsName, hostedSetRowsName});
    reporter.printComparison("Rows 1M x 10: VemoGrid.setRows vs FlexGrid Row/Col/CellBackColor",
                             benchmarkName(setRowsScenario, vemoGridName),
                             benchmarkName(setRowsScenario, colourCellsName), 1.0 / 3.0,
                             "within 3x");

    std::printf("\nSort ascending of 1M rows x 10 by one column, per SortType:\n");
    std::vector<std::string> sortPeers;
    for (const SortCase& sortCase : sortCases)
        sortPeers.push_back(vemoSortName(sortCase));
    sortPeers.push_back(tableWidgetSortName);
    printTimes(reporter, sortScenario, sortPeers);
    for (const SortCase& sortCase : sortCases) {
        reporter.printComparison(
            std::string("sort 1M: VemoGrid ") + sortCase.name + " vs QTableWidget numeric",
            benchmarkName(sortScenario, vemoSortName(sortCase)),
            benchmarkName(sortScenario, tableWidgetSortName), 5.0, "at least 5x faster");
    }

    std::printf("\nExportToExcel of 16,384 rows x 9 data columns (%.0f bytes):\n",
                reporter.counter(benchmarkName(exportScenario, vemoGridName), "file_bytes"));
    printTimes(reporter, exportScenario,
               {vemoGridName, bufferedWriteName, handRolledExportName, readCellsName});
    reporter.printComparison("export 16384 x 10: VemoGrid.ExportToExcel vs one buffered write",
                             benchmarkName(exportScenario, vemoGridName),
                             benchmarkName(exportScenario, bufferedWriteName), 1.0 / 3.0,
                             "within 3x");
    reporter.printComparison("export 16384 x 10: VemoGrid.ExportToExcel vs hand-rolled records",
                             benchmarkName(exportScenario, vemoGridName),
                             benchmarkName(exportScenario, handRolledExportName));
    reporter.printComparison("export 16384 x 10: only reading the cells vs one buffered write",
                             benchmarkName(exportScenario, readCellsName),
                             benchmarkName(exportScenario, bufferedWriteName));
    std::printf("export 16384 x 10: hand-rolled records write the export's bytes: %s\n",
                reporter.counter(benchmarkName(exportScenario, handRolledExportName),
                                 "same_bytes_as_export") > 0.0
                    ? "yes"
                    : "no");

    std::printf("\nAddItem of 100,000 TAB-separated rows of 10 cells, one by one:\n");
    printTimes(reporter, addItemScenario, {vemoGridName, tableWidgetName});
    reporter.printComparison("add 100k rows: VemoGrid.AddItem vs QTableWidget insertRow+setItem",
                             benchmarkName(addItemScenario, vemoGridName),
                             benchmarkName(addItemScenario, tableWidgetName), 5.0,
                             "at least 5x faster");

    std::printf("\n");
    reporter.printTargetTally();
}

} // namespace

int main(int argc, char** argv)
{
    // No display is needed: nothing is shown, and the offscreen platform keeps it that way.
    BenchProgram program(argc, argv, BenchProgram::Platform::Offscreen);

    QTemporaryDir directory;
    if (!directory.isValid()) {
        std::fprintf(stderr, "bench_vemogrid: no temporary directory for the export files\n");
        return 1;
    }
    const std::vector<QString> cells = addedCells();
    registerBenchmarks(directory.path(), cells);
    program.run(RatioReporter::Clock::Real, [](RatioReporter& reporter) {
        sortFixture.reset();
        printResults(reporter);
    });
    return 0;
}
