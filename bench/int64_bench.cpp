#include "zantms.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

// ZnInt64 against the machine's 64-bit integers and the C library's text of them.

namespace {

constexpr std::size_t kPairs = 4096;

/// Random numbers of every size from 1 to 64 bits; no zeros.
template <class Number>
std::vector<Number> Numbers(unsigned int seed) {
  std::mt19937_64 random(seed);
  std::vector<Number> numbers;
  while (numbers.size() < kPairs)
    if (auto const number = static_cast<__int64>(random()) >> (random() % 64))
      numbers.push_back(number);
  return numbers;
}

template <class Number, class Operation>
void Pairs(benchmark::State & state, Operation operation) {
  std::vector<Number> const a = Numbers<Number>(1);
  std::vector<Number> const b = Numbers<Number>(2);
  std::vector<Number> result(kPairs);
  for (auto _ : state) {
    for (std::size_t i = 0; i < kPairs; ++i)
      result[i] = operation(a[i], b[i]);
    benchmark::DoNotOptimize(result.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPairs));
}

template <class Number>
void Sum(benchmark::State & state) {
  Pairs<Number>(state, [](Number const & a, Number const & b) { return a + b; });
}

/// Modulo 2 to the power 64 on the machine's side too.
template <class Number>
void Product(benchmark::State & state) {
  Pairs<Number>(state, [](Number const & a, Number const & b) {
    if constexpr (std::is_same_v<Number, __int64>)
      return static_cast<__int64>(static_cast<unsigned long long>(a) *
                                  static_cast<unsigned long long>(b));
    else
      return a * b;
  });
}

template <class Number>
void Quotient(benchmark::State & state) {
  Pairs<Number>(state, [](Number const & a, Number const & b) { return a / b; });
}

template <class Number>
void Less(benchmark::State & state) {
  std::vector<Number> const a = Numbers<Number>(1);
  std::vector<Number> const b = Numbers<Number>(2);
  for (auto _ : state) {
    int count = 0;
    for (std::size_t i = 0; i < kPairs; ++i)
      count += a[i] < b[i];
    benchmark::DoNotOptimize(count);
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPairs));
}

BENCHMARK(Sum<ZnInt64>)->Name("Int64/sum");
BENCHMARK(Sum<__int64>)->Name("machine64/sum");
BENCHMARK(Product<ZnInt64>)->Name("Int64/product");
BENCHMARK(Product<__int64>)->Name("machine64/product");
BENCHMARK(Quotient<ZnInt64>)->Name("Int64/quotient");
BENCHMARK(Quotient<__int64>)->Name("machine64/quotient");
BENCHMARK(Less<ZnInt64>)->Name("Int64/less");
BENCHMARK(Less<__int64>)->Name("machine64/less");

// ---- Text ---------------------------------------------------------------------------------------

void Print(benchmark::State & state) {
  std::vector<ZnInt64> const numbers = Numbers<ZnInt64>(1);
  for (auto _ : state)
    for (ZnInt64 const & number : numbers) {
      ZnString out;
      number.PrintToZnString(out);
      benchmark::DoNotOptimize(out.text);
    }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPairs));
}
BENCHMARK(Print)->Name("Int64Text/print");

void PrintByLibrary(benchmark::State & state) {
  std::vector<__int64> const numbers = Numbers<__int64>(1);
  for (auto _ : state)
    for (__int64 const number : numbers) {
      char text[32];
      std::snprintf(text, sizeof text, "%lld", number);
      benchmark::DoNotOptimize(text);
    }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPairs));
}
BENCHMARK(PrintByLibrary)->Name("CLibrary/print");

std::vector<ZnString> Texts() {
  std::vector<ZnString> texts(kPairs);
  std::vector<ZnInt64> const numbers = Numbers<ZnInt64>(1);
  for (std::size_t i = 0; i < kPairs; ++i)
    numbers[i].PrintToZnString(texts[i]);
  return texts;
}

void Scan(benchmark::State & state) {
  std::vector<ZnString> const texts = Texts();
  for (auto _ : state)
    for (ZnString const & text : texts) {
      ZnInt64 number;
      number.ScanFromZnString(text);
      benchmark::DoNotOptimize(number);
    }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPairs));
}
BENCHMARK(Scan)->Name("Int64Text/scan");

void ScanByLibrary(benchmark::State & state) {
  std::vector<ZnString> const texts = Texts();
  for (auto _ : state)
    for (ZnString const & text : texts) {
      __int64 number = std::strtoll(text.StrGet(), nullptr, 0);
      benchmark::DoNotOptimize(number);
    }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kPairs));
}
BENCHMARK(ScanByLibrary)->Name("CLibrary/scan");

} // namespace
