// SPDX-License-Identifier: MIT
// The month calendar and the date picker: drawing one month with its lunar texts against
// QCalendarWidget drawing a plain month of the same size, and the time the date picker takes to
// open its calendar. The ratio and the targets are printed after the Google Benchmark table.
//
// A drawing is timed as QWidget::render into an image of the widget's size: the whole paint of
// the widget and its children (the calendar's four arrow buttons, QCalendarWidget's navigation
// bar and its table). The calendar draws under the Simplified Chinese text set, where lunar
// texts are drawn (the English set draws none). The picker's open is timed from BeginDropDown
// through one turn of the event loop, in which the calendar's window is shown and painted.
#include <VemoGridLib/VemoCalendar.h>
#include <VemoGridLib/VemoDTPicker.h>

#include "BenchProgram.h"
#include "RatioReporter.h"
#include "ThreadCpuTimer.h"

#include <benchmark/benchmark.h>

#include <QCalendarWidget>
#include <QImage>
#include <QTest>

#include <cstdio>
#include <vector>

namespace {

using VemoGridLib::VemoCalendar;
using VemoGridLib::VemoDTPicker;

const char* const drawVemo = "draw_month/VemoCalendar_lunar";
const char* const drawPeer = "draw_month/QCalendarWidget";
const char* const openPicker = "open/VemoDTPicker";
constexpr int drawsPerIteration = 50;
constexpr int opens = 200;

/// Renders `widget` `drawsPerIteration` times into an image of its size.
void renderRepeatedly(benchmark::State& state, QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        const ThreadCpuTimer timer;
        for (int i = 0; i < drawsPerIteration; ++i)
            widget.render(&image);
        state.SetIterationTime(timer.elapsedSeconds() / drawsPerIteration);
    }
}

void vemoCalendarDraw(benchmark::State& state)
{
    VemoCalendar calendar;
    calendar.setLunarCalendar(true);
    calendar.setValue(QDate(2024, 2, 10));
    if (!calendar.LunarCalendar()) {
        state.SkipWithError("the calendar draws no lunar texts in this text set");
        return;
    }
    renderRepeatedly(state, calendar);
    // The English text set would have cleared the flag at the first drawing.
    if (!calendar.LunarCalendar())
        state.SkipWithError("the calendar drew no lunar texts");
}

void qCalendarWidgetDraw(benchmark::State& state)
{
    VemoCalendar sized; // the same size as the lunar month
    sized.setLunarCalendar(true);
    QCalendarWidget calendar;
    calendar.resize(sized.size());
    calendar.setSelectedDate(QDate(2024, 2, 10));
    renderRepeatedly(state, calendar);
}

void pickerOpen(benchmark::State& state)
{
    QWidget form;
    form.resize(400, 300);
    auto* const picker = new VemoDTPicker(&form);
    picker->setGeometry(20, 20, 160, 24);
    picker->setLunarCalendar(true);
    picker->setText(QStringLiteral("2024-02-10"));
    form.show();
    form.activateWindow();
    if (!QTest::qWaitForWindowActive(&form)) {
        state.SkipWithError("the form did not become active");
        return;
    }
    for (auto _ : state) {
        std::vector<double> samples;
        for (int i = 0; i < opens; ++i) {
            const ThreadCpuTimer timer;
            picker->BeginDropDown();
            QCoreApplication::processEvents();
            samples.push_back(timer.elapsedSeconds());
            if (!picker->IsDropDown()) {
                state.SkipWithError("the calendar did not open");
                return;
            }
            picker->BeginDropDown(); // closes it, untimed
            QCoreApplication::processEvents();
        }
        const double median = RatioReporter::median(samples);
        state.counters["median_ms"] = median * 1e3;
        state.SetIterationTime(median);
    }
}

void printResults(RatioReporter& reporter)
{
    std::printf("\n==== The month calendar and the date picker, measured in this run (CPU time of "
                "the main thread) ====\n");
    std::printf("\nDrawing one month (2024-02), per drawing:\n");
    for (const char* name : {drawVemo, drawPeer}) {
        const double seconds = reporter.seconds(name);
        if (seconds <= 0.0)
            std::printf("  %-34s not measured\n", name);
        else
            std::printf("  %-34s %10.3f ms\n", name, seconds * 1e3);
    }
    reporter.printComparison("month with lunar texts: VemoCalendar vs QCalendarWidget (plain)",
                             drawVemo, drawPeer, 1.0, "at most as long");
    const double median = reporter.counter(openPicker, "median_ms");
    std::printf(
        "\nOpening the date picker's calendar (BeginDropDown through one event-loop turn):\n");
    std::printf("  %-34s %10.3f ms\n", "median", median);
    reporter.printBelow("open the picker's calendar: median %.3f ms", median, 5.0, "under 5 ms");
    std::printf("\n");
    reporter.printTargetTally();
}

} // namespace

int main(int argc, char** argv)
{
    // Lunar texts are drawn in the Chinese text sets.
    qputenv("LC_ALL", "zh_CN.UTF-8");
    BenchProgram program(argc, argv, BenchProgram::Platform::OffscreenUnlessSet);
    benchmark::RegisterBenchmark(drawVemo, vemoCalendarDraw)->UseManualTime()->Iterations(20);
    benchmark::RegisterBenchmark(drawPeer, qCalendarWidgetDraw)->UseManualTime()->Iterations(20);
    benchmark::RegisterBenchmark(openPicker, pickerOpen)->UseManualTime()->Iterations(1);
    program.run(RatioReporter::Clock::Real, printResults);
    return 0;
}
