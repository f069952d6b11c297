// Two threads' throughput of typical MP4 requests over one thread's, from short bursts
// that alternate. A virtual machine's speed may drift by up to 1.7x within a minute, so
// a whole one-thread run followed by a whole two-thread run measures the drift as much as
// the scaling; neighbouring bursts share the machine's mood, and each pair gives a ratio.
#include "Benchmarks.h"
#include "Workload.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

namespace Tervan::Bench {
namespace {

using Clock = std::chrono::steady_clock;

// Seconds for each of `threads` threads to plan `jobs` jobs, timed from a common start;
// the threads are started, and each has its dialog, before the clock runs.
double Burst(int threads, int jobs) {
    std::atomic<int> ready{0};
    std::atomic<bool> go{false};
    std::vector<std::thread> workers;
    workers.reserve(static_cast<std::size_t>(threads));
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&] {
            const auto dialog = DialogConsumer::Create();
            ready.fetch_add(1);
            while (!go.load(std::memory_order_acquire)) {
                std::this_thread::yield();
            }
            for (int i = 0; i < jobs; ++i) {
                PlanResult plan = PlanMp4Job(dialog);
                benchmark::DoNotOptimize(plan);
            }
        });
    }
    while (ready.load() < threads) {
        std::this_thread::yield();
    }
    const auto start = Clock::now();
    go.store(true, std::memory_order_release);
    for (std::thread& worker : workers) {
        worker.join();
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Long enough to dwarf starting and joining threads, short enough to see one mood.
constexpr double BURST_SECONDS = 0.01;

// Each iteration is one pair of bursts, the order alternating so that a steady drift
// favours neither side; the counter is the median of the pairs' ratios.
void ThreadScaling(benchmark::State& state) {
    if (PlanMp4Job(DialogConsumer::Create()).brokenRules != 0) {
        state.SkipWithError("the planned MP4 job breaks a rule");
        return;
    }
    int jobs = 1;
    while (Burst(1, jobs) < BURST_SECONDS) {
        jobs *= 2;
    }
    std::vector<double> ratios;
    for (auto _ : state) {
        double one = 0;
        double two = 0;
        if (ratios.size() % 2 == 0) {
            one = Burst(1, jobs);
            two = Burst(2, jobs);
        } else {
            two = Burst(2, jobs);
            one = Burst(1, jobs);
        }
        // Two threads did twice the jobs.
        ratios.push_back(2 * one / two);
        state.SetIterationTime(one + two);
    }
    state.counters[SCALING_RATIO] = Median(std::move(ratios));
}

}  // namespace

void RegisterScalingBenchmark() {
    constexpr int PAIRS = 41;
    benchmark::RegisterBenchmark(THREAD_SCALING, ThreadScaling)->UseManualTime()->Iterations(PAIRS);
}

}  // namespace Tervan::Bench
