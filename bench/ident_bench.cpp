#include "zantms.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

// Rows of object ids and references against loops over packed records, written by hand.

namespace {

constexpr unsigned int kCount = 4096;

#pragma pack(push, 1)
struct PackedObjId {
  unsigned int block;
  unsigned int low;
  unsigned short high;
};
struct PackedRef {
  unsigned int block;
  unsigned int low;
  unsigned short high;
  unsigned short databaseId;
  unsigned short classNumber;
};
#pragma pack(pop)

template <class Record>
struct Kind;
template <>
struct Kind<ZnObjId> {
  static constexpr char kId = ZnOBJID_T;
  using Packed = PackedObjId;
  static ZnObjId Make(std::mt19937 & random) {
    return {static_cast<unsigned int>(random()), static_cast<unsigned int>(random()),
            static_cast<unsigned short>(random())};
  }
  static void Pack(Packed & packed, ZnObjId const & value, bool swap) {
    packed = {value.block, value.low, value.high};
    if (swap)
      packed = {__builtin_bswap32(value.block), __builtin_bswap32(value.low),
                __builtin_bswap16(value.high)};
  }
  static void Unpack(ZnObjId & value, Packed const & packed, bool swap) {
    value = {packed.block, packed.low, packed.high};
    if (swap)
      value = {__builtin_bswap32(packed.block), __builtin_bswap32(packed.low),
               __builtin_bswap16(packed.high)};
  }
  template <class Fields>
  static int Compare(Fields const & a, Fields const & b) {
    if (a.high != b.high)
      return a.high - b.high;
    return (a.low > b.low) - (a.low < b.low);
  }
  template <class Fields>
  static unsigned int Hash(Fields const & a) {
    return a.low ^ a.high;
  }
};
template <>
struct Kind<ZnRef> {
  static constexpr char kId = ZnREF_T;
  using Packed = PackedRef;
  static ZnRef Make(std::mt19937 & random) {
    return {static_cast<unsigned int>(random()),   static_cast<unsigned int>(random()),
            static_cast<unsigned short>(random()), static_cast<unsigned short>(random()),
            static_cast<unsigned short>(random()), 0};
  }
  static void Pack(Packed & packed, ZnRef const & value, bool swap) {
    packed = {value.block, value.low, value.high, value.databaseId, value.classNumber};
    if (swap)
      packed = {__builtin_bswap32(value.block), __builtin_bswap32(value.low),
                __builtin_bswap16(value.high), __builtin_bswap16(value.databaseId),
                __builtin_bswap16(value.classNumber)};
  }
  static void Unpack(ZnRef & value, Packed const & packed, bool swap) {
    value = {packed.block, packed.low, packed.high, packed.databaseId, packed.classNumber, 0};
    if (swap)
      value = {__builtin_bswap32(packed.block),       __builtin_bswap32(packed.low),
               __builtin_bswap16(packed.high),        __builtin_bswap16(packed.databaseId),
               __builtin_bswap16(packed.classNumber), 0};
  }
  template <class Fields>
  static int Compare(Fields const & a, Fields const & b) {
    if (a.high != b.high)
      return a.high - b.high;
    if (a.low != b.low)
      return a.low > b.low ? 1 : -1;
    return (a.databaseId > b.databaseId) - (a.databaseId < b.databaseId);
  }
  template <class Fields>
  static unsigned int Hash(Fields const & a) {
    return a.low ^ a.high ^ a.databaseId;
  }
};

template <class Record>
std::vector<Record> Records() {
  std::mt19937 random(5);
  std::vector<Record> records;
  while (records.size() < kCount)
    records.push_back(Kind<Record>::Make(random));
  return records;
}

void CountItems(benchmark::State & state) {
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kCount));
}

// Each case in its three forms: the format byte is the argument.

template <class Record>
void Store(benchmark::State & state) {
  ZnTypeMgr const mgr;
  auto const format = static_cast<unsigned char>(state.range(0));
  std::vector<Record> const records = Records<Record>();
  std::vector<typename Kind<Record>::Packed> stored(kCount);
  for (auto _ : state) {
    mgr.Store(Kind<Record>::kId, stored.data(), records.data(), format, kCount);
    benchmark::ClobberMemory();
  }
  CountItems(state);
}

template <class Record>
void StoreByHand(benchmark::State & state) {
  bool const swap = state.range(0) == 2;
  std::vector<Record> const records = Records<Record>();
  std::vector<typename Kind<Record>::Packed> stored(kCount);
  for (auto _ : state) {
    for (unsigned int i = 0; i < kCount; ++i)
      Kind<Record>::Pack(stored[i], records[i], swap);
    benchmark::ClobberMemory();
  }
  CountItems(state);
}

template <class Record>
void Load(benchmark::State & state) {
  ZnTypeMgr const mgr;
  auto const format = static_cast<unsigned char>(state.range(0));
  std::vector<Record> records = Records<Record>();
  std::vector<typename Kind<Record>::Packed> stored(kCount);
  mgr.Store(Kind<Record>::kId, stored.data(), records.data(), format, kCount);
  for (auto _ : state) {
    mgr.Load(Kind<Record>::kId, records.data(), stored.data(), format, kCount);
    benchmark::ClobberMemory();
  }
  CountItems(state);
}

template <class Record>
void LoadByHand(benchmark::State & state) {
  bool const swap = state.range(0) == 2;
  std::vector<Record> records = Records<Record>();
  std::vector<typename Kind<Record>::Packed> stored(kCount);
  for (auto _ : state) {
    for (unsigned int i = 0; i < kCount; ++i)
      Kind<Record>::Unpack(records[i], stored[i], swap);
    benchmark::ClobberMemory();
  }
  CountItems(state);
}

/// Two arrays that differ in the last element only.
template <class Record, class Element>
std::vector<Element> Elements(int last) {
  std::vector<Record> records = Records<Record>();
  records.back().low += static_cast<unsigned int>(last);
  if constexpr (std::is_same_v<Record, Element>) {
    return records;
  } else {
    std::vector<Element> stored(kCount);
    for (unsigned int i = 0; i < kCount; ++i)
      Kind<Record>::Pack(stored[i], records[i], false);
    return stored;
  }
}

template <class Record, class Element>
void Compare(benchmark::State & state) {
  ZnTypeMgr const mgr;
  unsigned char const format = std::is_same_v<Record, Element> ? 8 : 1;
  std::vector<Element> a = Elements<Record, Element>(0);
  std::vector<Element> b = Elements<Record, Element>(1);
  for (auto _ : state) {
    int result = mgr.Cmp(Kind<Record>::kId, a.data(), b.data(), 0, kCount, format);
    benchmark::DoNotOptimize(result);
  }
  CountItems(state);
}

template <class Record, class Element>
void CompareByHand(benchmark::State & state) {
  std::vector<Element> const a = Elements<Record, Element>(0);
  std::vector<Element> const b = Elements<Record, Element>(1);
  for (auto _ : state) {
    int result = 0;
    for (unsigned int i = 0; i < kCount && result == 0; ++i)
      result = Kind<Record>::Compare(a[i], b[i]);
    benchmark::DoNotOptimize(result);
  }
  CountItems(state);
}

template <class Record, class Element>
void Hash(benchmark::State & state) {
  ZnTypeMgr const mgr;
  unsigned char const format = std::is_same_v<Record, Element> ? 8 : 1;
  std::vector<Element> a = Elements<Record, Element>(0);
  for (auto _ : state) {
    int error;
    unsigned int hash = mgr.Hash(Kind<Record>::kId, 0, a.data(), kCount, format, error);
    benchmark::DoNotOptimize(hash);
  }
  CountItems(state);
}

template <class Record, class Element>
void HashByHand(benchmark::State & state) {
  std::vector<Element> const a = Elements<Record, Element>(0);
  for (auto _ : state) {
    unsigned int hash = 0;
    for (unsigned int i = 0; i < kCount; ++i)
      hash ^= Kind<Record>::Hash(a[i]);
    hash *= 1103515245;
    benchmark::DoNotOptimize(hash);
  }
  CountItems(state);
}

// clang-format off
BENCHMARK(Store<ZnObjId>)->Name("Ident/store/objid")->Arg(1)->Arg(2);
BENCHMARK(StoreByHand<ZnObjId>)->Name("packed/store/objid")->Arg(1)->Arg(2);
BENCHMARK(Store<ZnRef>)->Name("Ident/store/ref")->Arg(1)->Arg(2);
BENCHMARK(StoreByHand<ZnRef>)->Name("packed/store/ref")->Arg(1)->Arg(2);
BENCHMARK(Load<ZnObjId>)->Name("Ident/load/objid")->Arg(1)->Arg(2);
BENCHMARK(LoadByHand<ZnObjId>)->Name("packed/load/objid")->Arg(1)->Arg(2);
BENCHMARK(Load<ZnRef>)->Name("Ident/load/ref")->Arg(1)->Arg(2);
BENCHMARK(LoadByHand<ZnRef>)->Name("packed/load/ref")->Arg(1)->Arg(2);
BENCHMARK(Compare<ZnObjId, ZnObjId>)->Name("Ident/compare/objid");
BENCHMARK(CompareByHand<ZnObjId, ZnObjId>)->Name("packed/compare/objid");
BENCHMARK(Compare<ZnObjId, PackedObjId>)->Name("Ident/compare/objid_stored");
BENCHMARK(CompareByHand<ZnObjId, PackedObjId>)->Name("packed/compare/objid_stored");
BENCHMARK(Compare<ZnRef, ZnRef>)->Name("Ident/compare/ref");
BENCHMARK(CompareByHand<ZnRef, ZnRef>)->Name("packed/compare/ref");
BENCHMARK(Compare<ZnRef, PackedRef>)->Name("Ident/compare/ref_stored");
BENCHMARK(CompareByHand<ZnRef, PackedRef>)->Name("packed/compare/ref_stored");
BENCHMARK(Hash<ZnObjId, ZnObjId>)->Name("Ident/hash/objid");
BENCHMARK(HashByHand<ZnObjId, ZnObjId>)->Name("packed/hash/objid");
BENCHMARK(Hash<ZnObjId, PackedObjId>)->Name("Ident/hash/objid_stored");
BENCHMARK(HashByHand<ZnObjId, PackedObjId>)->Name("packed/hash/objid_stored");
BENCHMARK(Hash<ZnRef, ZnRef>)->Name("Ident/hash/ref");
BENCHMARK(HashByHand<ZnRef, ZnRef>)->Name("packed/hash/ref");
BENCHMARK(Hash<ZnRef, PackedRef>)->Name("Ident/hash/ref_stored");
BENCHMARK(HashByHand<ZnRef, PackedRef>)->Name("packed/hash/ref_stored");
// clang-format on

} // namespace
