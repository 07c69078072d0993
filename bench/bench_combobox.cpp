// SPDX-License-Identifier: MIT
// VemoComboBox's drop-down list of 100,000 three-column items (code, name, unit price), against
// QComboBox given the same items in a three-column QStandardItemModel shown by a QTableView:
// the time to open the list, and the time of each character typed into the open list. The
// ratios and the targets are printed after the Google Benchmark table.
//
// Each side sits in a shown, active window. An open is timed from the call that opens the list
// (VemoComboBox::DropDown, QComboBox::showPopup) through one turn of the event loop, in which
// the list's window is exposed and painted; each open must paint the list's viewport at least
// once inside the timed span, or the benchmark fails. What each side does in that span is its
// own way of opening: VemoComboBox rebuilds its list from the items of its column, lays the
// list out and places its window; QComboBox sizes and places its popup around the model it
// already holds (measuring the items' texts for the popup's width). Building the items (the
// column's, the model's) is not timed on either side.
//
// The typing runs in the open list: codes are typed character by character as real key events
// to the combo's txtInput, and each character is timed through one turn of the event loop: the
// search for the first code with the typed prefix, the move of the current row, the scroll
// that shows it, CellComboSelect and the list's repaint.
#include <VemoGridLib/Column.h>
#include <VemoGridLib/FlexGrid.h>
#include <VemoGridLib/VemoComboBox.h>

#include "BenchProgram.h"
#include "RatioReporter.h"
#include "ThreadCpuTimer.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using VemoGridLib::VemoComboBox;

constexpr int itemCount = 100'000;
/// The catalogue's product groups; each holds itemCount / groups.size() codes, "HW-00001" on.
constexpr std::array<const char*, 20> groups = {"BR", "CB", "CH", "DR", "EL", "FS", "GL",
                                                "HW", "KT", "LM", "MT", "NT", "PL", "PN",
                                                "RV", "SC", "SP", "TL", "VL", "WS"};
constexpr int perGroup = itemCount / int(groups.size());
constexpr int openIterations = 10;
/// The codes typed into the open list, each from an empty field: spread over the catalogue,
/// so that the search runs to the front, the middle and the end of it.
constexpr std::array<const char*, 12> typedCodes = {"BR-00042", "CH-01377", "EL-02500", "FS-04999",
                                                    "GL-00007", "HW-03141", "LM-00256", "NT-01024",
                                                    "PN-02718", "SC-04096", "TL-00500", "WS-04990"};

QString code(int index)
{
    return QStringLiteral("%1-%2")
        .arg(QLatin1String(groups[std::size_t(index / perGroup)]))
        .arg(1 + index % perGroup, 5, 10, QLatin1Char('0'));
}

QString name(int index)
{
    static const std::array<const char*, 8> kinds = {"Hex bolt",  "Flat washer",  "Lock nut",
                                                     "Hinge",     "Wood screw",   "Pop rivet",
                                                     "Dowel pin", "Angle bracket"};
    return QStringLiteral("%1 M%2 x %3")
        .arg(QLatin1String(kinds[std::size_t(index) % kinds.size()]))
        .arg(3 + index % 10)
        .arg(10 + 5 * (index % 17));
}

QString unitPrice(int index)
{
    return QString::number(double((index * 7919) % 50'000) / 100.0 + 0.05, 'f', 2);
}

/// Counts the paint events of one widget (a list's viewport).
class PaintCounter : public QObject
{
public:
    int paints = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return QObject::eventFilter(watched, event);
    }
};

bool showActive(QWidget& window)
{
    window.resize(400, 120);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return false;
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        return false;
    QCoreApplication::processEvents();
    return true;
}

// ---- VemoComboBox -----------------------------------------------------------------------------

/// A form with a standalone combo whose column holds the catalogue, txtInput focused.
struct ComboForm
{
    QWidget form;
    VemoComboBox* combo = nullptr;
    QLineEdit* field = nullptr;

    bool make()
    {
        combo = new VemoComboBox(&form);
        combo->setGeometry(10, 10, 200, 24);
        VemoGridLib::Column& column = *combo->listColumn();
        column.setListHeader(QStringLiteral("Code\tName\tUnit price"));
        column.setSelectCol(0);
        const std::array<int, 3> widths = {1200, 3000, 1200}; // twips
        for (int col = 0; col < int(widths.size()); ++col)
            column.setCOLWIDTH(col, widths[std::size_t(col)]);
        column.setColAlignment(2, 7); // right, centre
        for (int i = 0; i < itemCount; ++i)
            column.AddItem(code(i) + u'\t' + name(i) + u'\t' + unitPrice(i));
        field = combo->findChild<QLineEdit*>(QStringLiteral("txtInput"));
        if (!field || !showActive(form))
            return false;
        field->setFocus();
        return QApplication::focusWidget() == field;
    }
};

void vemoComboOpen(benchmark::State& state)
{
    ComboForm f;
    if (!f.make()) {
        state.SkipWithError("the combo's window was not shown and activated");
        return;
    }
    PaintCounter painted;
    f.combo->list()->viewport()->installEventFilter(&painted);
    for (auto _ : state) {
        f.combo->CloseUp();
        QCoreApplication::processEvents();
        painted.paints = 0;
        const ThreadCpuTimer timer;
        f.combo->DropDown();
        QCoreApplication::processEvents();
        state.SetIterationTime(timer.elapsedSeconds());
        if (!f.combo->IsDropDown() || f.combo->Rows() != 1 + itemCount || painted.paints == 0) {
            state.SkipWithError("the list did not open with every item and paint");
            return;
        }
    }
}

void vemoComboTyping(benchmark::State& state)
{
    ComboForm f;
    if (!f.make()) {
        state.SkipWithError("the combo's window was not shown and activated");
        return;
    }
    int selects = 0;
    QObject::connect(f.combo, &VemoComboBox::CellComboSelect, [&selects] { ++selects; });
    f.combo->DropDown();
    QCoreApplication::processEvents();
    std::vector<double> samples;
    for (auto _ : state) {
        samples.clear();
        for (const char* typed : typedCodes) {
            f.combo->setValue(QString()); // an empty field, as after the user cleared it
            const QString text = QLatin1String(typed);
            for (const QChar ch : text) {
                const ThreadCpuTimer timer;
                QTest::keyClick(f.field, char(ch.unicode()));
                QCoreApplication::processEvents();
                samples.push_back(timer.elapsedSeconds());
            }
            // The typed code is the current row, shown in the list.
            const int row = f.combo->list()->Row();
            if (f.combo->RowText(row).section(u'\t', 0, 0) != text ||
                !f.combo->list()->RowIsVisible(row)) {
                state.SkipWithError("the typed code is not the list's shown current row");
                return;
            }
        }
        state.SetIterationTime(RatioReporter::median(samples));
    }
    if (selects == 0)
        state.SkipWithError("typing reported no CellComboSelect");
    state.counters["median_ms"] = RatioReporter::median(samples) * 1e3;
    state.counters["max_ms"] = *std::max_element(samples.begin(), samples.end()) * 1e3;
}

// ---- QComboBox --------------------------------------------------------------------------------

void qComboBoxOpen(benchmark::State& state)
{
    QWidget form;
    auto* const combo = new QComboBox(&form);
    combo->setGeometry(10, 10, 200, 24);
    auto* const model = new QStandardItemModel(itemCount, 3, combo);
    model->setHorizontalHeaderLabels(
        {QStringLiteral("Code"), QStringLiteral("Name"), QStringLiteral("Unit price")});
    for (int i = 0; i < itemCount; ++i) {
        model->setItem(i, 0, new QStandardItem(code(i)));
        model->setItem(i, 1, new QStandardItem(name(i)));
        auto* const price = new QStandardItem(unitPrice(i));
        price->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        model->setItem(i, 2, price);
    }
    auto* const view = new QTableView;
    combo->setModel(model);
    combo->setView(view); // after the model: the view shows the combo's model
    view->horizontalHeader()->setVisible(true);
    view->verticalHeader()->setVisible(false);
    view->setColumnWidth(0, 80);
    view->setColumnWidth(1, 200);
    view->setColumnWidth(2, 80);
    view->setMinimumWidth(380);
    if (!showActive(form)) {
        state.SkipWithError("the combo's window was not shown and activated");
        return;
    }
    PaintCounter painted;
    view->viewport()->installEventFilter(&painted);
    for (auto _ : state) {
        combo->hidePopup();
        QCoreApplication::processEvents();
        painted.paints = 0;
        const ThreadCpuTimer timer;
        combo->showPopup();
        QCoreApplication::processEvents();
        state.SetIterationTime(timer.elapsedSeconds());
        if (!view->isVisible() || model->rowCount() != itemCount || painted.paints == 0) {
            state.SkipWithError("the popup did not open with every item and paint");
            return;
        }
    }
    combo->hidePopup();
}

// ---- registration -----------------------------------------------------------------------------

constexpr const char* openVemo = "open_100000x3/VemoComboBox";
constexpr const char* openPeer = "open_100000x3/QComboBox_QTableView";
constexpr const char* typing = "type_codes_in_100000/VemoComboBox";

void registerBenchmarks()
{
    benchmark::RegisterBenchmark(openVemo, vemoComboOpen)
        ->Iterations(openIterations)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(openPeer, qComboBoxOpen)
        ->Iterations(openIterations)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(typing, vemoComboTyping)
        ->Iterations(3)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

QtMessageHandler previousHandler = nullptr;

// ---- the summary ------------------------------------------------------------------------------

void printResults(RatioReporter& reporter)
{
    std::printf("\n==== VemoComboBox and its peer, measured in this run (CPU time of the measured "
                "work: an open is the mean of %d, a typed character the median of %zu) ====\n",
                openIterations, typedCodes.size() * 8);

    std::printf("\nOpening a list of 100,000 items x 3 columns, through one turn of the event "
                "loop (painted):\n");
    const std::array<std::pair<const char*, const char*>, 2> opens = {
        {{openVemo, "VemoComboBox DropDown"}, {openPeer, "QComboBox showPopup"}}};
    for (const auto& [name, label] : opens) {
        const double seconds = reporter.seconds(name);
        if (seconds <= 0.0)
            std::printf("  %-34s not measured\n", label);
        else
            std::printf("  %-34s %10.3f ms\n", label, seconds * 1e3);
    }
    reporter.printComparison("open 100,000 x 3: VemoComboBox vs QComboBox + QTableView", openVemo,
                             openPeer, 2.0, "at least 2x faster");

    const double median = reporter.counter(typing, "median_ms");
    std::printf("\nTyping codes into the open list, per character (search, move, scroll, "
                "CellComboSelect, repaint):\n");
    std::printf("  %-34s %10.3f ms\n", "median", median);
    std::printf("  %-34s %10.3f ms\n", "slowest", reporter.counter(typing, "max_ms"));
    reporter.printBelow("typing in 100,000 items: median %.3f ms per character", median, 2.0,
                        "under 2 ms");

    std::printf("\n");
    reporter.printTargetTally();
}

/// Drops the offscreen platform's notes on what it cannot do (raise a popup, grab the
/// keyboard), which every open of either list would print.
void quietPlatformNotes(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        previousHandler(type, context, text);
}

} // namespace

int main(int argc, char** argv)
{
    previousHandler = qInstallMessageHandler(quietPlatformNotes);
    BenchProgram program(argc, argv, BenchProgram::Platform::OffscreenUnlessSet);
    registerBenchmarks();
    program.run(RatioReporter::Clock::Real, printResults);
    return 0;
}
