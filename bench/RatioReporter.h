// SPDX-License-Identifier: MIT
// The console reporter every bench_<name> executable shares: it keeps each benchmark's time and
// counters so that, after the run, main can print VemoGridLib's ratio against the peers it
// measured in the same run and whether the targets are met.
#pragma once

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

/// Shows Google Benchmark's usual console table and remembers, per benchmark (by the name it
/// was registered under), the mean time per iteration of every repetition and its counters.
/// Queries answer with the median over the repetitions, which is robust on a shared machine.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    /// Which of a run's times the queries use. `Real` is the manual time of benchmarks that
    /// call State::SetIterationTime.
    enum class Clock { Cpu, Real };

    /// Colours the table only on a terminal, as Google Benchmark's own reporter does.
    explicit RatioReporter(Clock clock = Clock::Cpu)
        : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_Defaults : OO_Tabular)
        , m_clock(clock)
    {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            Samples& samples = m_samples[run.run_name.function_name];
            samples.seconds.push_back(secondsPerIteration(run));
            for (const auto& [counterName, counter] : run.counters)
                samples.counters[counterName].push_back(counter.value);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    /// Seconds per iteration of the benchmark registered as `name`; 0 when it did not run.
    double seconds(const std::string& name) const
    {
        const auto found = m_samples.find(name);
        return found == m_samples.end() ? 0.0 : median(found->second.seconds);
    }

    /// The user counter `counter` of the benchmark `name`; 0 when it did not report it.
    double counter(const std::string& name, const std::string& counter) const
    {
        const auto found = m_samples.find(name);
        if (found == m_samples.end())
            return 0.0;
        const auto values = found->second.counters.find(counter);
        return values == found->second.counters.end() ? 0.0 : median(values->second);
    }

    /// "6.2x faster" or "1.3x slower" for our time against a peer's (any unit, both the same).
    static std::string comparison(double ours, double peer)
    {
        if (ours <= 0.0 || peer <= 0.0)
            return "not measured";
        char text[64];
        if (ours <= peer)
            std::snprintf(text, sizeof text, "%.1fx faster", peer / ours);
        else
            std::snprintf(text, sizeof text, "%.1fx slower", ours / peer);
        return text;
    }

    /// Prints "<label>: <comparison>" for the benchmarks `ours` and `peer`.
    void printComparison(const std::string& label, const std::string& ours,
                         const std::string& peer) const
    {
        std::printf("%s: %s\n", label.c_str(), comparison(seconds(ours), seconds(peer)).c_str());
    }

    /// As printComparison, then the target "at least `minimumSpeedup` times the peer's speed"
    /// (below 1 it allows that much slowness) with its verdict; the verdict is tallied.
    void printComparison(const std::string& label, const std::string& ours, const std::string& peer,
                         double minimumSpeedup, const std::string& target)
    {
        const double oursSeconds = seconds(ours);
        const double peerSeconds = seconds(peer);
        const std::string line = label + ": " + comparison(oursSeconds, peerSeconds);
        if (oursSeconds <= 0.0 || peerSeconds <= 0.0)
            printNotMeasured(line, target);
        else
            printVerdict(line, target, peerSeconds / oursSeconds >= minimumSpeedup);
    }

    /// Prints "<line> (target: <target>): met" or "... MISSED" and tallies the verdict.
    void printVerdict(const std::string& line, const std::string& target, bool met)
    {
        std::printf("%s (target: %s): %s\n", line.c_str(), target.c_str(), met ? "met" : "MISSED");
        if (met)
            ++m_met;
        else
            ++m_missed;
    }

    /// Prints a target whose benchmark did not run (filtered out or failed); not tallied.
    static void printNotMeasured(const std::string& line, const std::string& target)
    {
        std::printf("%s (target: %s): not measured\n", line.c_str(), target.c_str());
    }

    /// Prints `format` with `measured` in its one conversion (such as "%.1f us"), then
    /// "(target: <target>)" with its verdict, `measured` below `limit`; a value of 0 or less is a
    /// benchmark that did not run.
    void printBelow(const char* format, double measured, double limit, const std::string& target)
    {
        char line[160];
        std::snprintf(line, sizeof line, format, measured);
        if (measured <= 0.0)
            printNotMeasured(line, target);
        else
            printVerdict(line, target, measured < limit);
    }

    /// The median of `values` (the mean of the middle two for an even count); 0 for none.
    static double median(std::vector<double> values)
    {
        if (values.empty())
            return 0.0;
        std::sort(values.begin(), values.end());
        const std::size_t middle = values.size() / 2;
        return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
    }

    /// Prints how many of the tallied targets are met.
    void printTargetTally() const
    {
        std::printf("targets met: %d of %d", m_met, m_met + m_missed);
        if (m_missed > 0)
            std::printf(" (%d MISSED)", m_missed);
        std::printf("\n");
    }

private:
    struct Samples
    {
        std::vector<double> seconds;
        std::map<std::string, std::vector<double>> counters;
    };

    double secondsPerIteration(const Run& run) const
    {
        const double time =
            m_clock == Clock::Cpu ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime();
        return time / benchmark::GetTimeUnitMultiplier(run.time_unit);
    }

    Clock m_clock;
    std::map<std::string, Samples> m_samples;
    int m_met = 0;
    int m_missed = 0;
};
