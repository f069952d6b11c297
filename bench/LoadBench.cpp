// Library load, each iteration in a fresh process: the probe times dlopen of the
// helpers' library up to a ready registry, and of libavcodec alone for comparison.
#include "Benchmarks.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <sched.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

extern char** environ;

namespace Tervan::Bench {
namespace {

struct ProbeResult {
    double seconds = 0;
    double residentKiB = 0;
    std::string error;
};

// avcodec, when given, is the libavcodec the probe loads before it starts measuring.
ProbeResult RunProbe(const char* mode, const char* library, const char* avcodec) {
    ProbeResult result;
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        result.error = "pipe failed";
        return result;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[0]);
    std::array<char*, 5> arguments = {const_cast<char*>(TERVAN_LOAD_PROBE), const_cast<char*>(mode),
                                      const_cast<char*>(library), const_cast<char*>(avcodec), nullptr};
    pid_t child = 0;
    const int spawned = posix_spawn(&child, TERVAN_LOAD_PROBE, &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    std::string output;
    std::array<char, 128> buffer{};
    ssize_t count = 0;
    while ((count = read(pipeEnds[0], buffer.data(), buffer.size())) > 0) {
        output.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(pipeEnds[0]);
    int status = 0;
    if (spawned != 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        result.error = std::string("the load probe failed on ") + library;
        return result;
    }
    long long nanoseconds = 0;
    long kib = 0;
    if (std::sscanf(output.c_str(), "%lld %ld", &nanoseconds, &kib) != 2) {
        result.error = "the load probe printed no figures";
        return result;
    }
    result.seconds = static_cast<double>(nanoseconds) * 1e-9;
    result.residentKiB = static_cast<double>(kib);
    return result;
}

void Load(benchmark::State& state, const char* mode, const char* library, const char* avcodec) {
    double residentKiB = 0;
    for (auto _ : state) {
        const ProbeResult probe = RunProbe(mode, library, avcodec);
        if (!probe.error.empty()) {
            state.SkipWithError(probe.error.c_str());
            return;
        }
        state.SetIterationTime(probe.seconds);
        residentKiB += probe.residentKiB;
    }
    state.counters[RESIDENT_KIB] = benchmark::Counter(residentKiB, benchmark::Counter::kAvgIterations);
}

// Pins this thread to one processor at a time, cycling through those it may use, and
// gives it all of them back when it goes; a spawned probe inherits the pinning.
class Pinning {
public:
    Pinning() : m_known(sched_getaffinity(0, sizeof m_allowed, &m_allowed) == 0) {
        for (int cpu = 0; m_known && cpu < CPU_SETSIZE; ++cpu) {
            if (CPU_ISSET(cpu, &m_allowed)) {
                m_cpus.push_back(cpu);
            }
        }
    }
    ~Pinning() {
        if (m_known) {
            sched_setaffinity(0, sizeof m_allowed, &m_allowed);
        }
    }
    Pinning(const Pinning&) = delete;
    Pinning& operator=(const Pinning&) = delete;

    bool Known() const { return m_known && !m_cpus.empty(); }

    void PinToNth(std::size_t n) const {
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(m_cpus[n % m_cpus.size()], &one);
        sched_setaffinity(0, sizeof one, &one);
    }

private:
    cpu_set_t m_allowed{};
    bool m_known;
    std::vector<int> m_cpus;
};

// libavcodec alone and the library, each in a fresh process, in turn and in alternating
// order. Separate runs of forty loads each drift apart with the machine by several
// milliseconds, and on a virtual machine a load may take a quarter longer on one
// processor than on the other: both loads of a pair run on one processor, the pairs
// taking the processors in turn.
void LoadOverAvcodec(benchmark::State& state) {
    const Pinning pinning;
    if (!pinning.Known()) {
        state.SkipWithError("the processors this thread may use are unknown");
        return;
    }
    std::vector<double> addedSeconds;
    std::vector<double> addedKiB;
    for (auto _ : state) {
        const std::size_t pair = addedSeconds.size();
        pinning.PinToNth(pair / 2);
        ProbeResult avcodec;
        ProbeResult library;
        if (pair % 2 == 0) {
            avcodec = RunProbe("plain", TERVAN_AVCODEC_LIBRARY, nullptr);
            library = RunProbe("registry", TERVAN_DATAHELPERS_LIBRARY, nullptr);
        } else {
            library = RunProbe("registry", TERVAN_DATAHELPERS_LIBRARY, nullptr);
            avcodec = RunProbe("plain", TERVAN_AVCODEC_LIBRARY, nullptr);
        }
        for (const ProbeResult* probe : {&avcodec, &library}) {
            if (!probe->error.empty()) {
                state.SkipWithError(probe->error.c_str());
                return;
            }
        }
        addedSeconds.push_back(library.seconds - avcodec.seconds);
        addedKiB.push_back(library.residentKiB - avcodec.residentKiB);
        state.SetIterationTime(avcodec.seconds + library.seconds);
    }
    state.counters[ADDED_MS] = Median(std::move(addedSeconds)) * 1e3;
    state.counters[RESIDENT_KIB] = Median(std::move(addedKiB));
}

}  // namespace

void RegisterLoadBenchmarks() {
    // A few dozen processes per run: enough for a stable median, short enough to wait for.
    constexpr int PROCESSES = 40;
    benchmark::RegisterBenchmark(LOAD_AVCODEC, Load, "plain", TERVAN_AVCODEC_LIBRARY, nullptr)
        ->UseManualTime()
        ->Iterations(PROCESSES)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(LOAD_AVCODEC_LOOKUP, Load, "encoder", TERVAN_AVCODEC_LIBRARY, nullptr)
        ->UseManualTime()
        ->Iterations(PROCESSES)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(LOAD_DATAHELPERS, Load, "registry", TERVAN_DATAHELPERS_LIBRARY, nullptr)
        ->UseManualTime()
        ->Iterations(PROCESSES)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(LOAD_PAIRED, LoadOverAvcodec)
        ->UseManualTime()
        ->Iterations(PROCESSES)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(LOAD_DATAHELPERS_ADDED, Load, "added", TERVAN_DATAHELPERS_LIBRARY,
                                 TERVAN_AVCODEC_LIBRARY)
        ->UseManualTime()
        ->Iterations(PROCESSES)
        ->Unit(benchmark::kMillisecond);
}

}  // namespace Tervan::Bench
