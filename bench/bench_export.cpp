// SPDX-License-Identifier: MIT
// VemoGrid's XLSX and CSV exports of 100,000 rows x 10 typed columns against their peers, all
// measured in one run: ExportToXlsx against the same data in a QStandardItemModel written with
// libxlsxwriter by a plain loop, and ExportToCsv against a QTextStream write of that model.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoGrid.h>

#include "BenchProgram.h"
#include "RatioReporter.h"
#include "ThreadCpuTimer.h"

#include <benchmark/benchmark.h>

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTextStream>

#include <xlsxwriter.h>

#include <cstdio>
#include <memory>

namespace {

using namespace VemoGridLib;

constexpr int dataRows = 100'000;
constexpr int dataCols = 10;

// The sheet's columns, in order: grid column c + 1 is sheet column c.
constexpr VemoGridColType types[dataCols] = {eTextBox,  eTextBox,  eCurrency,  eNumeric, eLong,
                                             eCalendar, eCheckBox, ehyperlink, eTextBox, eNumeric};
constexpr int autoAddCol = 0;
const QDate firstDate(2024, 1, 1);

/// The cell text of the grid and the typed value of the model at (`row`, `col`), both zero-based.
QString cellText(int row, int col)
{
    switch (col) {
    case autoAddCol:
        return QString::number(row + 1);
    case 1:
        return QStringLiteral("商品 %1").arg(row % 977);
    case 2:
        return QStringLiteral("%1.%2").arg(row % 5000).arg(row % 100, 2, 10, QLatin1Char('0'));
    case 3:
        return QString::number((row % 1000) * 0.125);
    case 4:
        return QString::number(row * 7);
    case 5:
        return firstDate.addDays(row % 3650).toString(Qt::ISODate);
    case 6:
        return row % 3 == 0 ? QStringLiteral(".") : QString();
    case 7:
        return QStringLiteral("https://example.com/item/%1").arg(row % 500);
    case 8:
        return QStringLiteral("note, \"%1\"").arg(row);
    default:
        return QString::number(row % 97 - 48.5);
    }
}

QVariant cellValue(int row, int col)
{
    const QString text = cellText(row, col);
    switch (col) {
    case autoAddCol:
    case 4:
        return text.toInt();
    case 2:
    case 3:
    case 9:
        return text.toDouble();
    case 5:
        return firstDate.addDays(row % 3650);
    case 6:
        return !text.isEmpty();
    default:
        return text;
    }
}

std::unique_ptr<VemoGrid> makeGrid()
{
    auto grid = std::make_unique<VemoGrid>();
    grid->setCols(dataCols + 1);
    grid->setRows(dataRows + 1);
    FlexGrid& flex = *grid->hostedGrid();
    for (int c = 0; c < dataCols; ++c) {
        grid->setColType(c + 1, types[c]);
        flex.setTextMatrix(0, c + 1, QStringLiteral("列%1").arg(c + 1));
        for (int r = 0; r < dataRows; ++r)
            flex.setTextMatrix(r + 1, c + 1, cellText(r, c));
    }
    grid->Column(autoAddCol + 1)->setAutoAdd(true);
    return grid;
}

std::unique_ptr<QStandardItemModel> makeModel()
{
    auto model = std::make_unique<QStandardItemModel>(dataRows, dataCols);
    for (int c = 0; c < dataCols; ++c) {
        model->setHeaderData(c, Qt::Horizontal, QStringLiteral("列%1").arg(c + 1));
        for (int r = 0; r < dataRows; ++r)
            model->setData(model->index(r, c), cellValue(r, c));
    }
    return model;
}

/// The peer: the model written cell by cell, each value by its type, with the same formats.
void writeModelXlsx(const QStandardItemModel& model, const QString& path)
{
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* book = workbook_new_opt(QFile::encodeName(path).constData(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    lxw_format* bold = workbook_add_format(book);
    format_set_bold(bold);
    lxw_format* money = workbook_add_format(book);
    format_set_num_format(money, "#,##0.00");
    lxw_format* whole = workbook_add_format(book);
    format_set_num_format(whole, "0");
    lxw_format* date = workbook_add_format(book);
    format_set_num_format(date, "yyyy-mm-dd");
    worksheet_freeze_panes(sheet, 1, 0);
    for (int c = 0; c < dataCols; ++c)
        worksheet_write_string(sheet, 0, lxw_col_t(c),
                               model.headerData(c, Qt::Horizontal).toString().toUtf8().constData(),
                               bold);
    const QDate epoch(1899, 12, 30);
    for (int r = 0; r < dataRows; ++r) {
        for (int c = 0; c < dataCols; ++c) {
            const QVariant value = model.data(model.index(r, c));
            const lxw_row_t row = lxw_row_t(r + 1);
            const lxw_col_t col = lxw_col_t(c);
            switch (value.typeId()) {
            case QMetaType::Int:
                worksheet_write_number(sheet, row, col, value.toInt(), whole);
                break;
            case QMetaType::Double:
                worksheet_write_number(sheet, row, col, value.toDouble(), c == 2 ? money : nullptr);
                break;
            case QMetaType::QDate:
                worksheet_write_number(sheet, row, col, double(epoch.daysTo(value.toDate())), date);
                break;
            case QMetaType::Bool:
                worksheet_write_boolean(sheet, row, col, value.toBool(), nullptr);
                break;
            default: {
                const QByteArray text = value.toString().toUtf8();
                if (types[c] == ehyperlink)
                    worksheet_write_url_opt(sheet, row, col, text.constData(), nullptr,
                                            text.constData(), nullptr);
                else
                    worksheet_write_string(sheet, row, col, text.constData(), nullptr);
            }
            }
        }
    }
    workbook_close(book);
}

/// The CSV peer: the model's texts through a QTextStream, quoted as ExportToCsv quotes.
void writeModelCsv(const QStandardItemModel& model, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    QTextStream out(&file);
    out.setGenerateByteOrderMark(true);
    const auto field = [](QString text) {
        if (text.contains(QLatin1Char(',')) || text.contains(QLatin1Char('"')) ||
            text.contains(QLatin1Char('\r')) || text.contains(QLatin1Char('\n')))
            return QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\"")) +
                   QLatin1Char('"');
        return text;
    };
    for (int c = 0; c < dataCols; ++c)
        out << (c ? "," : "") << field(model.headerData(c, Qt::Horizontal).toString());
    out << "\r\n";
    for (int r = 0; r < dataRows; ++r) {
        for (int c = 0; c < dataCols; ++c) {
            const QVariant value = model.data(model.index(r, c));
            out << (c ? "," : "")
                << (value.typeId() == QMetaType::Bool ? QString(value.toBool() ? "TRUE" : "FALSE")
                                                      : field(value.toString()));
        }
        out << "\r\n";
    }
}

template <typename Write>
void timeWrites(benchmark::State& state, const QString& path, Write&& write)
{
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        write(path);
        state.SetIterationTime(timer.elapsedSeconds());
    }
    const qint64 bytes = QFileInfo(path).size();
    if (bytes <= 0)
        state.SkipWithError("nothing was written");
    state.counters["file_bytes"] = double(bytes);
}

constexpr const char* xlsxVemo = "xlsx/VemoGrid_ExportToXlsx";
constexpr const char* xlsxPeer = "xlsx/QStandardItemModel_libxlsxwriter_loop";
constexpr const char* csvVemo = "csv/VemoGrid_ExportToCsv";
constexpr const char* csvPeer = "csv/QStandardItemModel_QTextStream";

void printResults(RatioReporter& reporter)
{
    std::printf("\n==== 100,000 rows x 10 columns (text, currency, numeric, long, date, check box, "
                "hyperlink, auto-numbered), measured in this run (CPU time of the main "
                "thread) ====\n");
    for (const char* name : {xlsxVemo, xlsxPeer, csvVemo, csvPeer}) {
        const double seconds = reporter.seconds(name);
        if (seconds <= 0.0)
            std::printf("  %-44s not measured\n", name);
        else
            std::printf("  %-44s %10.1f ms\n", name, seconds * 1e3);
    }
    reporter.printComparison("XLSX: ExportToXlsx vs a libxlsxwriter loop over the model", xlsxVemo,
                             xlsxPeer);
    reporter.printComparison("CSV: ExportToCsv vs QTextStream over the model", csvVemo, csvPeer);
    reporter.printBelow("ExportToXlsx of 100,000 x 10: %.2f s", reporter.seconds(xlsxVemo), 2.0,
                        "under 2 s");
    std::printf("\n");
    reporter.printTargetTally();
}

} // namespace

int main(int argc, char** argv)
{
    // The grid reads its numbers and dates in the en-US rules.
    qputenv("LC_ALL", "en_US.UTF-8");
    BenchProgram program(argc, argv, BenchProgram::Platform::OffscreenUnlessSet);
    QTemporaryDir directory;
    const std::unique_ptr<VemoGrid> grid = makeGrid();
    const std::unique_ptr<QStandardItemModel> model = makeModel();
    const auto add = [&](const char* name, auto write, const char* file) {
        benchmark::RegisterBenchmark(name,
                                     [=, path = directory.filePath(file)](benchmark::State& state) {
                                         timeWrites(state, path, write);
                                     })
            ->UseManualTime()
            ->Iterations(3)
            ->Unit(benchmark::kMillisecond);
    };
    add(
        xlsxVemo, [&](const QString& path) { grid->ExportToXlsx(path); }, "grid.xlsx");
    add(
        xlsxPeer, [&](const QString& path) { writeModelXlsx(*model, path); }, "model.xlsx");
    add(
        csvVemo, [&](const QString& path) { grid->ExportToCsv(path); }, "grid.csv");
    add(
        csvPeer, [&](const QString& path) { writeModelCsv(*model, path); }, "model.csv");
    RatioReporter reporter(RatioReporter::Clock::Real);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    printResults(reporter);
    return 0;
}
