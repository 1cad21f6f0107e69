#include "zantms.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <ctime>
#include <vector>

/// Dates and times beside the C and C++ libraries and beside loops written by hand.

namespace {

constexpr unsigned int kCount = 4096;
constexpr char kFormat[] = "%Y-%m-%dT%H:%M:%S";

ZnTypeMgr & Mgr() {
  static ZnTypeMgr mgr;
  return mgr;
}

// ---- Calendar: 4096 days over four centuries ----------------------------------------------------

void DateOfDay(benchmark::State & state) {
  for (auto _ : state)
    for (unsigned int i = 0; i < kCount; ++i)
      benchmark::DoNotOptimize(ZnDate(2400000 + static_cast<int>(i) * 37));
}
void ChronoDateOfDay(benchmark::State & state) {
  for (auto _ : state)
    for (unsigned int i = 0; i < kCount; ++i)
      benchmark::DoNotOptimize(std::chrono::year_month_day(
          std::chrono::sys_days(std::chrono::days(-40587 + static_cast<int>(i) * 37))));
}
void GmtimeDateOfDay(benchmark::State & state) {
  std::tm fields;
  for (auto _ : state)
    for (unsigned int i = 0; i < kCount; ++i) {
      std::time_t const time = (-40587 + static_cast<long>(i) * 37) * 86400;
      benchmark::DoNotOptimize(gmtime_r(&time, &fields));
    }
}
BENCHMARK(DateOfDay)->Name("Date/fromday");
BENCHMARK(ChronoDateOfDay)->Name("chrono/fromday");
BENCHMARK(GmtimeDateOfDay)->Name("gmtime/fromday");

template <class Date>
std::vector<Date> Days(auto make) {
  std::vector<Date> dates;
  for (unsigned int i = 0; i < kCount; ++i)
    dates.push_back(make(static_cast<int>(i) * 37));
  return dates;
}

void DayOfDate(benchmark::State & state) {
  auto const dates = Days<ZnDate>([](int i) { return ZnDate(2400000 + i); });
  for (auto _ : state)
    for (ZnDate const & date : dates)
      benchmark::DoNotOptimize(date.dayabs());
}
void ChronoDayOfDate(benchmark::State & state) {
  auto const dates = Days<std::chrono::year_month_day>([](int i) {
    return std::chrono::year_month_day(std::chrono::sys_days(std::chrono::days(-40587 + i)));
  });
  for (auto _ : state)
    for (auto const & date : dates)
      benchmark::DoNotOptimize(std::chrono::sys_days(date));
}
BENCHMARK(DayOfDate)->Name("Date/today");
BENCHMARK(ChronoDayOfDate)->Name("chrono/today");

// ---- Sums ---------------------------------------------------------------------------------------

void AddSeconds(benchmark::State & state) {
  ZnDateTime value(ZnDate(2000, 1, 1), ZnTime(23, 59, 59));
  for (auto _ : state) {
    value.AddSeconds(86399);
    value.AddSeconds(-86390);
    benchmark::DoNotOptimize(value);
  }
}
void AddNanoSeconds(benchmark::State & state) {
  ZnDateTimeN value(ZnDate(2000, 1, 1), ZnTime(23, 59, 59));
  for (auto _ : state) {
    value.AddNanoSeconds(86399000000000LL);
    value.AddNanoSeconds(-86390000000001LL);
    benchmark::DoNotOptimize(value);
  }
}
/// What a caller would write: a count of seconds, taken apart after each sum.
void ChronoSeconds(benchmark::State & state) {
  using namespace std::chrono;
  year_month_day date(year(2000), month(1), day(1));
  seconds time(86399);
  auto const add = [&](int n) {
    auto const instant = sys_days(date).time_since_epoch() + time + seconds(n);
    auto const whole = floor<days>(instant);
    date = year_month_day(sys_days(whole));
    time = instant - whole;
  };
  for (auto _ : state) {
    add(86399);
    add(-86390);
    benchmark::DoNotOptimize(date);
    benchmark::DoNotOptimize(time);
  }
}
BENCHMARK(AddSeconds)->Name("Sum/seconds");
BENCHMARK(AddNanoSeconds)->Name("Sum/nanoseconds");
BENCHMARK(ChronoSeconds)->Name("chrono/seconds");
BENCHMARK(ChronoSeconds)->Name("chrono/nanoseconds");

// ---- Text ---------------------------------------------------------------------------------------

void Print(benchmark::State & state, int nanoseconds, char const * format) {
  ZnDateTimeN value(2024, 2, 1, 13, 5, 9, nanoseconds);
  ZnString out;
  for (auto _ : state) {
    value.second = static_cast<signed char>(value.second == 59 ? 0 : value.second + 1);
    value.PrintToZnString(out, format);
    benchmark::DoNotOptimize(out.text);
  }
}
void Strftime(benchmark::State & state) {
  std::tm fields{};
  fields.tm_year = 124;
  fields.tm_mon = 1;
  fields.tm_mday = 1;
  fields.tm_hour = 13;
  char out[64];
  for (auto _ : state) {
    fields.tm_sec = fields.tm_sec == 59 ? 0 : fields.tm_sec + 1;
    benchmark::DoNotOptimize(std::strftime(out, sizeof out, kFormat, &fields));
    benchmark::ClobberMemory();
  }
}
BENCHMARK_CAPTURE(Print, iso, 0, kFormat)->Name("Print/iso");
BENCHMARK_CAPTURE(Print, nanoseconds, 123456789, "%X")->Name("Print/nanoseconds");
BENCHMARK_CAPTURE(Print, whole, 0, "%X")->Name("Whole/nanoseconds");
BENCHMARK(Strftime)->Name("strftime/iso");

/// Times of three centuries. Both scans find texts that were written long before, as a caller's
/// are: a byte that is still on its way to the cache holds up every wider read of it.
std::vector<ZnString> Times() {
  std::vector<ZnString> texts(64);
  for (unsigned int i = 0; i < texts.size(); ++i)
    ZnDateTimeN(ZnDate(2400000 + static_cast<int>(i) * 1700), ZnTime(static_cast<int>(i) * 1350))
        .PrintToZnString(texts[i], kFormat);
  return texts;
}

void Scan(benchmark::State & state) {
  std::vector<ZnString> texts = Times();
  ZnDateTimeN value;
  for (auto _ : state)
    for (ZnString & text : texts) {
      value.ScanFromZnString(text, kFormat);
      benchmark::DoNotOptimize(value);
    }
}
void Strptime(benchmark::State & state) {
  std::vector<ZnString> const texts = Times();
  std::tm fields{};
  for (auto _ : state)
    for (ZnString const & text : texts) {
      benchmark::DoNotOptimize(strptime(text.text, kFormat, &fields));
      benchmark::ClobberMemory();
    }
}
BENCHMARK(Scan)->Name("Scan/iso");
BENCHMARK(Strptime)->Name("strptime/iso");

// ---- Arrays in stored form, high byte first, beside plain loops ---------------------------------

struct Arrays {
  std::vector<ZnDateTimeN> values;
  std::vector<unsigned char> stored;
  std::vector<unsigned char> other;
};

Arrays & Data() {
  static Arrays arrays = [] {
    Arrays made;
    for (unsigned int i = 0; i < kCount; ++i) {
      ZnDateTimeN value(ZnDate(2400000 + static_cast<int>(i)),
                        ZnTime(static_cast<int>(i) * 21 % 86400));
      value.nanoseconds = static_cast<int>(i) * 1000;
      made.values.push_back(value);
    }
    made.stored.resize(kCount * 11);
    Mgr().Store(ZnDATIME_N_T, made.stored.data(), made.values.data(), 2, kCount);
    made.other = made.stored;
    made.other.back() ^= 1; // so that a comparison goes to the end
    return made;
  }();
  return arrays;
}

void StoreRow(benchmark::State & state) {
  Arrays & data = Data();
  std::vector<unsigned char> out(kCount * 11);
  for (auto _ : state) {
    Mgr().Store(ZnDATIME_N_T, out.data(), data.values.data(), 2, kCount);
    benchmark::ClobberMemory();
  }
}
void StoreLoop(benchmark::State & state) {
  Arrays & data = Data();
  std::vector<unsigned char> out(kCount * 11);
  for (auto _ : state) {
    unsigned char * at = out.data();
    for (ZnDateTimeN const & v : data.values) {
      auto const year = __builtin_bswap16(static_cast<unsigned short>(v.year));
      auto const ns = __builtin_bswap32(static_cast<unsigned int>(v.nanoseconds));
      std::memcpy(at, &year, 2);
      std::memcpy(at + 2, &v.month, 5);
      std::memcpy(at + 7, &ns, 4);
      at += 11;
    }
    benchmark::ClobberMemory();
  }
}
void LoadRow(benchmark::State & state) {
  Arrays & data = Data();
  std::vector<ZnDateTimeN> out(kCount);
  for (auto _ : state) {
    Mgr().Load(ZnDATIME_N_T, out.data(), data.stored.data(), 2, kCount);
    benchmark::ClobberMemory();
  }
}
void LoadLoop(benchmark::State & state) {
  Arrays & data = Data();
  std::vector<ZnDateTimeN> out(kCount);
  for (auto _ : state) {
    unsigned char const * at = data.stored.data();
    for (ZnDateTimeN & v : out) {
      unsigned short year;
      unsigned int ns;
      std::memcpy(&year, at, 2);
      std::memcpy(&v.month, at + 2, 5);
      std::memcpy(&ns, at + 7, 4);
      v.year = static_cast<short>(__builtin_bswap16(year));
      v.nanoseconds = static_cast<int>(__builtin_bswap32(ns));
      at += 11;
    }
    benchmark::ClobberMemory();
  }
}
void CmpRow(benchmark::State & state) {
  Arrays & data = Data();
  for (auto _ : state)
    benchmark::DoNotOptimize(
        Mgr().Cmp(ZnDATIME_N_T, data.stored.data(), data.other.data(), 0, kCount, 2));
}
void CmpLoop(benchmark::State & state) {
  Arrays & data = Data();
  for (auto _ : state) {
    int order = 0;
    for (unsigned int i = 0; i < kCount && order == 0; ++i) {
      unsigned char const * a = data.stored.data() + i * 11;
      unsigned char const * b = data.other.data() + i * 11;
      auto const yearA = static_cast<short>(a[0] << 8 | a[1]);
      auto const yearB = static_cast<short>(b[0] << 8 | b[1]);
      if (yearA != yearB && yearB != -1)
        order = yearA < yearB ? -1 : 1;
      for (int j = 2; j < 7 && order == 0; ++j)
        if (b[j] != 0xFF)
          order = static_cast<signed char>(a[j]) - static_cast<signed char>(b[j]);
      if (order == 0) {
        int nsA;
        int nsB;
        std::memcpy(&nsA, a + 7, 4);
        std::memcpy(&nsB, b + 7, 4);
        nsA = static_cast<int>(__builtin_bswap32(static_cast<unsigned int>(nsA)));
        nsB = static_cast<int>(__builtin_bswap32(static_cast<unsigned int>(nsB)));
        if (nsB != -1)
          order = (nsA > nsB) - (nsA < nsB);
      }
    }
    benchmark::DoNotOptimize(order);
  }
}
void HashRow(benchmark::State & state) {
  Arrays & data = Data();
  int error;
  for (auto _ : state)
    benchmark::DoNotOptimize(Mgr().Hash(ZnDATIME_N_T, 0, data.stored.data(), kCount, 2, error));
}
void HashLoop(benchmark::State & state) {
  Arrays & data = Data();
  for (auto _ : state) {
    unsigned int total = 0;
    for (unsigned int i = 0; i < kCount; ++i) {
      unsigned char const * a = data.stored.data() + i * 11;
      auto const byte = [a](int j) { return static_cast<signed char>(a[j]); };
      unsigned int ns;
      std::memcpy(&ns, a + 7, 4);
      auto const year = static_cast<unsigned int>(static_cast<short>(a[0] << 8 | a[1]));
      total ^= ((year << 16) + static_cast<unsigned int>(byte(2) * 256 + byte(3))) ^
               static_cast<unsigned int>(byte(4) * 65536 + byte(5) * 256 + byte(6)) ^
               __builtin_bswap32(ns);
    }
    benchmark::DoNotOptimize(total * 1103515245);
  }
}
BENCHMARK(StoreRow)->Name("DateRow/store");
BENCHMARK(LoadRow)->Name("DateRow/load");
BENCHMARK(CmpRow)->Name("DateRow/cmp");
BENCHMARK(HashRow)->Name("DateRow/hash");
BENCHMARK(StoreLoop)->Name("dateloop/store");
BENCHMARK(LoadLoop)->Name("dateloop/load");
BENCHMARK(CmpLoop)->Name("dateloop/cmp");
BENCHMARK(HashLoop)->Name("dateloop/hash");

} // namespace
