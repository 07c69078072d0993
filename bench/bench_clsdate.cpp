// SPDX-License-Identifier: MIT
// clsDate against ICU's Chinese calendar, converting every supported day.
#include <VemoGridLib/clsDate.h>

#include "BenchProgram.h"
#include "RatioReporter.h"

#include <benchmark/benchmark.h>
#include <unicode/calendar.h>
#include <unicode/locid.h>

#include <QDate>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct GregorianDay
{
    int year;
    int month;
    int day;
    qint64 julianDay;
};

struct LunarFields
{
    int month = 0;
    int day = 0;
    bool isLeap = false;

    bool operator==(const LunarFields&) const = default;
};

std::vector<GregorianDay> supportedDays()
{
    std::vector<GregorianDay> days;
    for (QDate date(1900, 1, 31); date <= QDate(2100, 12, 31); date = date.addDays(1))
        days.push_back({date.year(), date.month(), date.day(), date.toJulianDay()});
    return days;
}

class ClsDateConverter
{
public:
    LunarFields operator()(const GregorianDay& day)
    {
        m_engine.sInitDate(day.year, day.month, day.day);
        return {m_engine.lMonth(), m_engine.lDay(), m_engine.IsLeap()};
    }

private:
    VemoGridLib::clsDate m_engine;
};

// The Julian day field sets the Gregorian day without any time-zone arithmetic.
class IcuConverter
{
public:
    IcuConverter()
    {
        UErrorCode status = U_ZERO_ERROR;
        m_calendar.reset(
            icu::Calendar::createInstance(icu::Locale("zh_CN@calendar=chinese"), status));
        if (U_FAILURE(status))
            throw std::runtime_error(u_errorName(status));
    }

    LunarFields operator()(const GregorianDay& day)
    {
        UErrorCode status = U_ZERO_ERROR;
        m_calendar->set(UCAL_JULIAN_DAY, int(day.julianDay));
        LunarFields fields;
        fields.month = m_calendar->get(UCAL_MONTH, status) + 1;
        fields.day = m_calendar->get(UCAL_DATE, status);
        fields.isLeap = m_calendar->get(UCAL_IS_LEAP_MONTH, status) != 0;
        if (U_FAILURE(status))
            throw std::runtime_error(u_errorName(status));
        return fields;
    }

private:
    std::unique_ptr<icu::Calendar> m_calendar;
};

template <typename Converter>
void convertEveryDay(benchmark::State& state, const std::vector<GregorianDay>& days)
{
    Converter convert;
    for (auto _ : state) {
        quint64 checksum = 0;
        for (const GregorianDay& day : days) {
            const LunarFields fields = convert(day);
            checksum += quint64(fields.month * 64 + fields.day * 2 + int(fields.isLeap));
        }
        benchmark::DoNotOptimize(checksum);
    }
    state.SetItemsProcessed(state.iterations() * qint64(days.size()));
}

int countDisagreements(const std::vector<GregorianDay>& days)
{
    ClsDateConverter ours;
    IcuConverter icu;
    int disagreements = 0;
    for (const GregorianDay& day : days) {
        if (!(ours(day) == icu(day)))
            ++disagreements;
    }
    return disagreements;
}

void printResults(const RatioReporter& reporter, const std::vector<GregorianDay>& days)
{
    const double ours = reporter.seconds("clsDate/every_day");
    const double icu = reporter.seconds("ICU_chinese/every_day");
    std::printf("\n%zu days, 1900-01-31..2100-12-31, per day: clsDate %.1f ns, ICU %.1f ns\n",
                days.size(), ours * 1e9 / double(days.size()), icu * 1e9 / double(days.size()));
    if (ours > 0.0 && icu > 0.0)
        std::printf("clsDate vs ICU: %s (CPU time)\n",
                    RatioReporter::comparison(ours, icu).c_str());
    std::printf("days where clsDate and ICU disagree (month, day or leap flag): %d\n",
                countDisagreements(days));
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<GregorianDay> days = supportedDays();
    benchmark::RegisterBenchmark("clsDate/every_day", convertEveryDay<ClsDateConverter>, days)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("ICU_chinese/every_day", convertEveryDay<IcuConverter>, days)
        ->Unit(benchmark::kMillisecond);

    BenchProgram program(argc, argv, BenchProgram::Platform::None);
    program.run(RatioReporter::Clock::Cpu,
                [&](const RatioReporter& reporter) { printResults(reporter, days); });
    return 0;
}
