#include <zantms.h>

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <string>
#include <vector>

/// UTF-8 both ways beside ICU, on about 4000 characters of German and of Japanese text.

namespace {

std::string Repeated(char const * text) {
  std::string all;
  while (all.size() < 6000)
    all += text;
  return all;
}

std::string const & German() {
  static std::string const text =
      Repeated("Die Straßenbahn fährt täglich über die große Brücke nach Köln; wer früh genug "
               "aufsteht, bekommt einen Platz am Fenster und sieht die Schiffe auf dem Rhein. ");
  return text;
}

std::string const & Japanese() {
  static std::string const text =
      Repeated("吾輩は猫である。名前はまだ無い。どこで生れたかとんと見当がつかぬ。"
               "何でも薄暗いじめじめした所でニャーニャー泣いていた事だけは記憶している。");
  return text;
}

using Units = std::vector<unsigned short>;

Units UnitsOf(std::string text) {
  Units units(text.size());
  int const length = ZnMultiByteStr2WCharStr(units.data(), static_cast<int>(units.size()),
                                             text.data(), static_cast<int>(text.size()));
  units.resize(static_cast<std::size_t>(length));
  return units;
}

void Decode(benchmark::State & state, std::string text) {
  Units out(text.size());
  for (auto _ : state) {
    benchmark::DoNotOptimize(ZnMultiByteStr2WCharStr(out.data(), static_cast<int>(out.size()),
                                                     text.data(), static_cast<int>(text.size())));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void IcuDecode(benchmark::State & state, std::string const & text) {
  std::vector<UChar> out(text.size());
  for (auto _ : state) {
    std::int32_t length;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(out.data(), static_cast<std::int32_t>(out.size()), &length, text.data(),
                  static_cast<std::int32_t>(text.size()), &error);
    benchmark::DoNotOptimize(length);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void Encode(benchmark::State & state, std::string const & text) {
  Units units = UnitsOf(text);
  units.push_back(0);
  ZnString const s(units.data());
  std::string out(text.size() + 16, ' ');
  for (auto _ : state) {
    benchmark::DoNotOptimize(ZnString2ZnMBS(s, out.data(), static_cast<int>(out.size())));
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void IcuEncode(benchmark::State & state, std::string const & text) {
  Units const units = UnitsOf(text);
  std::vector<UChar> const in(units.begin(), units.end());
  std::string out(text.size() + 16, ' ');
  for (auto _ : state) {
    std::int32_t length;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8(out.data(), static_cast<std::int32_t>(out.size()), &length, in.data(),
                static_cast<std::int32_t>(in.size()), &error);
    benchmark::DoNotOptimize(length);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

BENCHMARK_CAPTURE(Decode, german, German())->Name("Utf8Decode/german");
BENCHMARK_CAPTURE(IcuDecode, german, German())->Name("IcuDecode/german");
BENCHMARK_CAPTURE(Decode, japanese, Japanese())->Name("Utf8Decode/japanese");
BENCHMARK_CAPTURE(IcuDecode, japanese, Japanese())->Name("IcuDecode/japanese");
BENCHMARK_CAPTURE(Encode, german, German())->Name("Utf8Encode/german");
BENCHMARK_CAPTURE(IcuEncode, german, German())->Name("IcuEncode/german");
BENCHMARK_CAPTURE(Encode, japanese, Japanese())->Name("Utf8Encode/japanese");
BENCHMARK_CAPTURE(IcuEncode, japanese, Japanese())->Name("IcuEncode/japanese");

} // namespace
