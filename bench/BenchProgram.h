// SPDX-License-Identifier: MIT
// The start and the end every bench_<name> executable shares, so that its main only registers
// its benchmarks and prints its own results.
#pragma once

#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QtGlobal>

#include <cstdlib>
#include <optional>

/// Lives for the whole main: reads Google Benchmark's command line and, for the programs that
/// build widgets, owns the QApplication. An argument that neither Google Benchmark nor Qt takes
/// is reported and ends the program with exit code 1.
class BenchProgram
{
public:
    enum class Platform {
        /// No QApplication: the program measures plain computations.
        None,
        /// Always the offscreen platform, for programs that never show a window.
        Offscreen,
        /// The offscreen platform unless QT_QPA_PLATFORM names another: the windows are shown
        /// and activated, which needs no display, but one can watch them on a real one.
        OffscreenUnlessSet,
    };

    /// Steps the program needs before its QApplication exists (a locale, a message handler)
    /// come before this.
    BenchProgram(int& argc, char** argv, Platform platform)
    {
        if (platform == Platform::Offscreen || (platform == Platform::OffscreenUnlessSet &&
                                                qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        benchmark::Initialize(&argc, argv);
        if (platform != Platform::None)
            m_application.emplace(argc, argv);
        // Qt has taken its own arguments by now; whatever is left is a typing error.
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
            m_application.reset();
            std::exit(1);
        }
    }

    /// Runs the benchmarks the command line selects, timed on `clock`, ends Google Benchmark and
    /// then hands the results to `report(RatioReporter&)`.
    template <typename Report>
    void run(RatioReporter::Clock clock, Report&& report)
    {
        RatioReporter reporter(clock);
        benchmark::RunSpecifiedBenchmarks(&reporter);
        benchmark::Shutdown();
        report(reporter);
    }

private:
    std::optional<QApplication> m_application;
};
