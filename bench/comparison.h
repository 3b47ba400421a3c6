// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>
#include <chrono>

namespace kelvor::bench {

using Clock = std::chrono::steady_clock;

inline double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// How long an act takes, until the windows have been brought up to date.
template <typename Act>
double secondsOf(Act act) {
    const auto start = Clock::now();
    act();
    QApplication::processEvents();
    return secondsSince(start);
}

/// Both times of all iterations, in seconds.
class Comparison {
public:
    explicit Comparison(benchmark::State& state) : state_(state) {}
    ~Comparison() {
        state_.counters["bare_ms"] = benchmark::Counter(bare_ * 1000, benchmark::Counter::kAvgIterations);
        state_.counters["ratio"] = ours_ / bare_;
    }
    Comparison(const Comparison&) = delete;
    Comparison& operator=(const Comparison&) = delete;

    void add(double ours, double bare) {
        state_.SetIterationTime(ours);
        ours_ += ours;
        bare_ += bare;
    }

private:
    benchmark::State& state_;
    double ours_ = 0;
    double bare_ = 0;
};

}  // namespace kelvor::bench
