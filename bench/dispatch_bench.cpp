#include "zantms.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

/// What the way through the table costs: one value compared by the manager, beside the same row
/// called through a pointer, and the bound row beside a compare.

namespace {

int a = 41;
int b = 42;
int lo = 0;
int hi = 100;

void CmpInt(benchmark::State & state) {
  ZnTypeMgr const mgr;
  for (auto _ : state) {
    benchmark::DoNotOptimize(&mgr);
    benchmark::DoNotOptimize(mgr.Cmp(ZnINT_T, &a, &b, 0, 1, ZnFormatMemory));
    benchmark::ClobberMemory();
  }
}

void PointerInt(benchmark::State & state) {
  ZnTypeCmpFunc compare = &IntCompare;
  for (auto _ : state) {
    int error = 0;
    benchmark::DoNotOptimize(compare);
    benchmark::DoNotOptimize(compare(ZnFormatMemory, 0, &a, 0, &b, 0, 1, error));
    benchmark::ClobberMemory();
  }
}

void BoundInt(benchmark::State & state) {
  ZnTypeMgr const mgr;
  ZnIdxBounds area{&lo, &hi, sizeof lo, sizeof hi, 0, 0, 255};
  unsigned short op = ZnOpBelow | ZnOpEqual;
  for (auto _ : state) {
    benchmark::DoNotOptimize(&mgr);
    benchmark::DoNotOptimize(
        mgr.EvalAndBound(ZnINT_T, &area, op, &a, ZnFormatLittleEndian, 1, nullptr, nullptr));
    benchmark::ClobberMemory();
  }
}

BENCHMARK(CmpInt)->Name("Cmp/int");
BENCHMARK(PointerInt)->Name("Pointer/int");
BENCHMARK(BoundInt)->Name("EvalAndBound/int");
BENCHMARK(CmpInt)->Name("CmpForBound/int");

} // namespace
