// How the benchmarks take time: a body against a peer in the same run, since machines are noisy.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>

namespace orvane::bench {

/// Seconds of processor time that one call of `body` takes.
template <class Body> double secondsOf(int repeats, Body&& body) {
    const std::clock_t start = std::clock();
    for (int i = 0; i < repeats; ++i) body();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / repeats;
}

/// Times the body alternately with its peer, so that both meet the same machine, and states the difference.
template <class Body, class Peer>
void measureAbove(benchmark::State& state, double limit, int perBody, Body&& body, Peer&& peer) {
    double own = 0, others = 0;
    std::int64_t rounds = 0;
    for (auto _ : state) {
        others += secondsOf(1000, peer);
        const double seconds = secondsOf(1, body) / perBody;
        own += seconds;
        state.SetIterationTime(seconds);
        ++rounds;
    }
    const double above = (own - others) / static_cast<double>(rounds);
    state.counters["host us"] = others / static_cast<double>(rounds) * 1e6;
    state.counters["above us"] = above * 1e6;
    state.counters["of limit"] = above / limit;
}

}  // namespace orvane::bench
