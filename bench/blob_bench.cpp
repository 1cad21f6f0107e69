#include "zantms.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

// Search in blobs against memmem, and loading of blobs against copies into vectors.

namespace {

constexpr std::size_t kBytes = 16 << 20;

/// 0: random content, the pattern stands nowhere. 1: a run of one byte, and a pattern that differs
/// from it in its last byte; 2: in its first byte; 3: in the middle.
struct Haystack {
  std::string content;
  std::string pattern;
};

Haystack Content(long kind, std::size_t length) {
  std::mt19937 random(9);
  Haystack haystack;
  if (kind == 0) {
    while (haystack.content.size() < kBytes)
      haystack.content.push_back(static_cast<char>(random()));
    do {
      haystack.pattern.clear();
      while (haystack.pattern.size() < length)
        haystack.pattern.push_back(static_cast<char>(random()));
    } while (haystack.content.find(haystack.pattern) != std::string::npos);
    return haystack;
  }
  haystack.content.assign(kBytes, 'a');
  haystack.pattern.assign(length, 'a');
  haystack.pattern[kind == 1 ? length - 1 : kind == 2 ? 0 : length / 2] = 'b';
  return haystack;
}

void Search(benchmark::State & state) {
  Haystack const h = Content(state.range(0), static_cast<std::size_t>(state.range(1)));
  ZnBlob const content(h.content.data(), static_cast<int>(h.content.size()));
  ZnBlob const pattern(h.pattern.data(), static_cast<int>(h.pattern.size()));
  for (auto _ : state) {
    int found = content.Search(pattern);
    benchmark::DoNotOptimize(found);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}

void SearchByLibrary(benchmark::State & state) {
  Haystack const h = Content(state.range(0), static_cast<std::size_t>(state.range(1)));
  for (auto _ : state) {
    void * found = memmem(h.content.data(), h.content.size(), h.pattern.data(), h.pattern.size());
    benchmark::DoNotOptimize(found);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}

BENCHMARK(Search)->Name("BlobSearch")->ArgsProduct({{0, 1, 2, 3}, {4, 16, 64}});
BENCHMARK(SearchByLibrary)->Name("memmem")->ArgsProduct({{0, 1, 2, 3}, {4, 16, 64}});

// ---- Stored arrays ------------------------------------------------------------------------------

constexpr unsigned int kCount = 10000;
constexpr int kLength = 100;

void Load(benchmark::State & state) {
  ZnTypeMgr const mgr;
  std::vector<ZnBlob> blobs(kCount, ZnBlob(std::string(kLength, 'x').data(), kLength));
  std::vector<char> unit(mgr.DiskLenGet(ZnBLOB_T, blobs.data(), 1, kCount, 8));
  mgr.Store(ZnBLOB_T, unit.data(), blobs.data(), 1, kCount);
  for (auto _ : state) {
    mgr.Load(ZnBLOB_T, blobs.data(), unit.data(), 1, kCount);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kCount));
}
BENCHMARK(Load)->Name("Blob/load");

/// Into vectors that have the room already.
void LoadVectors(benchmark::State & state) {
  std::vector<char> const stored(kCount * kLength, 'x');
  std::vector<std::vector<char>> vectors(kCount, std::vector<char>(kLength));
  for (auto _ : state) {
    char const * at = stored.data();
    for (auto & vector : vectors) {
      vector.assign(at, at + kLength);
      at += kLength;
    }
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kCount));
}
BENCHMARK(LoadVectors)->Name("vector/load");

void StoreBlobs(benchmark::State & state) {
  ZnTypeMgr const mgr;
  std::vector<ZnBlob> blobs(kCount, ZnBlob(std::string(kLength, 'x').data(), kLength));
  std::vector<char> unit(mgr.DiskLenGet(ZnBLOB_T, blobs.data(), 1, kCount, 8));
  for (auto _ : state) {
    mgr.Store(ZnBLOB_T, unit.data(), blobs.data(), 1, kCount);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kCount));
}
BENCHMARK(StoreBlobs)->Name("Blob/store");

void StoreVectors(benchmark::State & state) {
  std::vector<char> stored(kCount * kLength);
  std::vector<std::vector<char>> const vectors(kCount, std::vector<char>(kLength));
  for (auto _ : state) {
    char * at = stored.data();
    for (auto const & vector : vectors) {
      std::memcpy(at, vector.data(), vector.size());
      at += vector.size();
    }
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kCount));
}
BENCHMARK(StoreVectors)->Name("vector/store");

} // namespace
