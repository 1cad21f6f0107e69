#include "zantms.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

/// Comparing two equal arrays of 4096 elements, beside `memcmp`, and hashing one, beside a loop of
/// exclusive or.

namespace {

constexpr unsigned int kCount = 4096;

struct Arrays {
  std::vector<unsigned char> a, b;
  explicit Arrays(unsigned int width) : a(kCount * width + 1), b(kCount * width + 1) {
    for (std::size_t i = 0; i < a.size(); ++i)
      a[i] = b[i] = static_cast<unsigned char>(i * 7 + i / 255);
  }
};

void Compare(benchmark::State & state, char id, unsigned int width, unsigned char format) {
  ZnTypeMgr const mgr;
  Arrays arrays(width);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        mgr.Cmp(id, arrays.a.data() + 1, arrays.b.data() + 1, 0, kCount, format));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * kCount * width);
}

void Memcmp(benchmark::State & state, unsigned int width) {
  Arrays arrays(width);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        std::memcmp(arrays.a.data() + 1, arrays.b.data() + 1, std::size_t(kCount) * width));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * kCount * width);
}

void Hash(benchmark::State & state, char id, unsigned int width, unsigned char format) {
  ZnTypeMgr const mgr;
  Arrays arrays(width);
  int error;
  for (auto _ : state) {
    benchmark::DoNotOptimize(mgr.Hash(id, 0, arrays.a.data() + 1, kCount, format, error));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * kCount * width);
}

template <class Word>
void Xor(benchmark::State & state) {
  Arrays arrays(sizeof(Word));
  for (auto _ : state) {
    Word total = 0;
    for (std::size_t i = 0; i < kCount; ++i) {
      Word word;
      std::memcpy(&word, arrays.a.data() + 1 + i * sizeof word, sizeof word);
      total ^= word;
    }
    benchmark::DoNotOptimize(total);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * kCount * sizeof(Word));
}

BENCHMARK_CAPTURE(Compare, memory1, Zn1B_T, 1, 8)->Name("CmpArray/memory1");
BENCHMARK_CAPTURE(Compare, memory2, Zn2B_T, 2, 8)->Name("CmpArray/memory2");
BENCHMARK_CAPTURE(Compare, memory4, Zn4B_T, 4, 8)->Name("CmpArray/memory4");
BENCHMARK_CAPTURE(Compare, memory8, Zn8B_T, 8, 8)->Name("CmpArray/memory8");
BENCHMARK_CAPTURE(Compare, big8, Zn8B_T, 8, 2)->Name("CmpArray/big8");
BENCHMARK_CAPTURE(Memcmp, memory1, 1)->Name("memcmp/memory1");
BENCHMARK_CAPTURE(Memcmp, memory2, 2)->Name("memcmp/memory2");
BENCHMARK_CAPTURE(Memcmp, memory4, 4)->Name("memcmp/memory4");
BENCHMARK_CAPTURE(Memcmp, memory8, 8)->Name("memcmp/memory8");
BENCHMARK_CAPTURE(Memcmp, big8, 8)->Name("memcmp/big8");
BENCHMARK_CAPTURE(Hash, memory1, ZnU1B_T, 1, 8)->Name("HashArray/memory1");
BENCHMARK_CAPTURE(Hash, memory2, Zn2B_T, 2, 8)->Name("HashArray/memory2");
BENCHMARK_CAPTURE(Hash, memory4, Zn4B_T, 4, 8)->Name("HashArray/memory4");
BENCHMARK_CAPTURE(Hash, memory8, Zn8B_T, 8, 8)->Name("HashArray/memory8");
BENCHMARK_CAPTURE(Hash, big4, Zn4B_T, 4, 2)->Name("HashArray/big4");
BENCHMARK(Xor<unsigned char>)->Name("xor/memory1");
BENCHMARK(Xor<unsigned short>)->Name("xor/memory2");
BENCHMARK(Xor<unsigned int>)->Name("xor/memory4");
BENCHMARK(Xor<unsigned long long>)->Name("xor/memory8");
BENCHMARK(Xor<unsigned int>)->Name("xor/big4");

} // namespace
