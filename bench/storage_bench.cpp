#include "zanbs.h"

#include <benchmark/benchmark.h>

#include <cstring>

/// Storing arrays of 4096 elements at odd addresses, beside `memcpy` of as many bytes.

namespace {

constexpr unsigned int kCount = 4096;

/// The same bytes for all, so that no case has luck with its place in the cache, and at odd
/// addresses, as stored values lie.
alignas(4096) unsigned char src[kCount * 8 + 17];
alignas(4096) unsigned char dst[kCount * 8 + 17];

using Mover = unsigned int (*)(void *, void const *, unsigned char, unsigned int);

void Run(benchmark::State & state, unsigned int width, auto && move) {
  for (auto _ : state) {
    move(dst + 17, src + 1);
    benchmark::DoNotOptimize(&dst);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * kCount * width);
}

void Store(benchmark::State & state, Mover mover, unsigned int width, unsigned char format) {
  Run(state, width, [=](void * to, void const * from) { mover(to, from, format, kCount); });
}

void Copy(benchmark::State & state, unsigned int width) {
  Run(state, width, [=](void * to, void const * from) { std::memcpy(to, from, kCount * width); });
}

BENCHMARK_CAPTURE(Store, little2, &ShortStore, 2, 1)->Name("Store/little2");
BENCHMARK_CAPTURE(Store, big2, &ShortStore, 2, 2)->Name("Store/big2");
BENCHMARK_CAPTURE(Store, little4, &IntLoad, 4, 1)->Name("Store/little4");
BENCHMARK_CAPTURE(Store, big4, &IntLoad, 4, 2)->Name("Store/big4");
BENCHMARK_CAPTURE(Store, little8, &O_8BStore, 8, 1)->Name("Store/little8");
BENCHMARK_CAPTURE(Store, big8, &O_8BStore, 8, 2)->Name("Store/big8");
BENCHMARK_CAPTURE(Copy, little2, 2)->Name("memcpy/little2");
BENCHMARK_CAPTURE(Copy, big2, 2)->Name("memcpy/big2");
BENCHMARK_CAPTURE(Copy, little4, 4)->Name("memcpy/little4");
BENCHMARK_CAPTURE(Copy, big4, 4)->Name("memcpy/big4");
BENCHMARK_CAPTURE(Copy, little8, 8)->Name("memcpy/little8");
BENCHMARK_CAPTURE(Copy, big8, 8)->Name("memcpy/big8");

} // namespace
