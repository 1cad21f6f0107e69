#include "zantms.h"

#include <benchmark/benchmark.h>

#include <cstdio>

/// Printing and scanning numbers by the formats of their rows, beside the C library with the same
/// format. Both prints fill a string.

namespace {

template <class Number>
Number Vary(Number number) {
  benchmark::DoNotOptimize(number);
  return number;
}

template <class Number>
void Print(benchmark::State & state, char id, Number number) {
  ZnTypeMgr const mgr;
  ZnString out;
  for (auto _ : state) {
    Number value = Vary(number);
    mgr.PrintToZnString(id, out, &value, nullptr, 1);
    benchmark::DoNotOptimize(out.text);
  }
}

template <class Number>
void LibraryPrint(benchmark::State & state, char const * format, Number number) {
  char text[512];
  ZnString out;
  for (auto _ : state) {
    std::snprintf(text, sizeof text, format, Vary(number));
    out = text;
    benchmark::DoNotOptimize(out.text);
  }
}

template <class Number>
void Scan(benchmark::State & state, char id, char const * text, Number value) {
  ZnTypeMgr const mgr;
  ZnString in(text);
  for (auto _ : state) {
    mgr.ScanFromZnString(id, &value, in, nullptr, 1);
    benchmark::DoNotOptimize(value);
  }
}

template <class Number>
void LibraryScan(benchmark::State & state, char const * format, char const * text, Number value) {
  for (auto _ : state) {
    std::sscanf(text, format, &value);
    benchmark::DoNotOptimize(value);
  }
}

BENCHMARK_CAPTURE(Print, int, ZnINT_T, -123456789)->Name("PrintNumber/int");
BENCHMARK_CAPTURE(LibraryPrint, int, "%d", -123456789)->Name("snprintf/int");
BENCHMARK_CAPTURE(Print, 8b, Zn8B_T, -1234567890123456789ll)->Name("PrintNumber/8b");
BENCHMARK_CAPTURE(LibraryPrint, 8b, "%lld", -1234567890123456789ll)->Name("snprintf/8b");
BENCHMARK_CAPTURE(Print, double, ZnDOUBLE_T, 1234.5678901234567)->Name("PrintNumber/double");
BENCHMARK_CAPTURE(LibraryPrint, double, "%.17g", 1234.5678901234567)->Name("snprintf/double");
BENCHMARK_CAPTURE(Scan, int, ZnINT_T, "-123456789", 0)->Name("ScanNumber/int");
BENCHMARK_CAPTURE(LibraryScan, int, "%d", "-123456789", 0)->Name("sscanf/int");
BENCHMARK_CAPTURE(Scan, 8b, Zn8B_T, "-1234567890123456789", 0ll)->Name("ScanNumber/8b");
BENCHMARK_CAPTURE(LibraryScan, 8b, "%lld", "-1234567890123456789", 0ll)->Name("sscanf/8b");
BENCHMARK_CAPTURE(Scan, double, ZnDOUBLE_T, "1234.5678901234567", 0.0)->Name("ScanNumber/double");
BENCHMARK_CAPTURE(LibraryScan, double, "%lf", "1234.5678901234567", 0.0)->Name("sscanf/double");

} // namespace
