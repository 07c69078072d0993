// SPDX-License-Identifier: MIT
// The clock every benchmark reads.
#pragma once

#include <time.h>

/// CPU time of the calling thread. The machine is shared with other people's compilers, so
/// wall time would add their load; every measured piece of work runs on the main thread (file
/// writes into the page cache included).
class ThreadCpuTimer
{
public:
    ThreadCpuTimer()
        : m_start(now())
    {}

    double elapsedSeconds() const { return now() - m_start; }

private:
    static double now()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
    }

    double m_start;
};
