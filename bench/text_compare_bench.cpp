#include "zantms.h"

#include <benchmark/benchmark.h>
#include <fnmatch.h>
#include <unicode/ucol.h>
#include <unicode/usearch.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

/// Ordering, matching and hashing 100,000 words of a German word list (Debian's package wngerman),
/// beside the collator and the string search of ICU and the C library's `fnmatch`. Without the
/// word list every case reports an error.
///
/// "shuffled" compares words at random, most of which differ at the first letter; "sorted" compares
/// the neighbours of the sorted list, which share long beginnings.

namespace {

constexpr unsigned char kGerman = 1; // as for English, nothing is tailored
constexpr std::size_t kWords = 100000;

struct Word {
  std::string utf8;
  std::string latin1;
  std::u16string utf16;
};

/// Null if the text has a character that code set 1 lacks.
std::unique_ptr<Word> MakeWord(std::string const & utf8) {
  auto word = std::make_unique<Word>();
  word->utf8 = utf8;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    unsigned int c = static_cast<unsigned char>(utf8[i]);
    if (c >= 0x80) {
      if (c >> 2 != 0x30 || i + 1 == utf8.size())
        return nullptr;
      c = (c & 3) << 6 | (static_cast<unsigned char>(utf8[++i]) & 0x3F);
    }
    word->latin1 += static_cast<char>(c);
    word->utf16 += static_cast<char16_t>(c);
  }
  return word;
}

UCollator * OpenCollator(bool shifted) {
  UErrorCode status = U_ZERO_ERROR;
  UCollator * const collator = ucol_open("de", &status);
  if (shifted) {
    ucol_setAttribute(collator, UCOL_ALTERNATE_HANDLING, UCOL_SHIFTED, &status);
    ucol_setStrength(collator, UCOL_QUATERNARY);
  }
  return collator;
}

struct Corpus {
  std::vector<Word> shuffled;
  std::vector<Word> sorted;
  UCollator * plain = OpenCollator(false);
  UCollator * shifted = OpenCollator(true);

  Corpus() {
    std::ifstream file("/usr/share/dict/ngerman");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
      lines.push_back(line);
    std::mt19937 random(1);
    std::shuffle(lines.begin(), lines.end(), random);
    for (std::string const & line : lines)
      if (auto const word = MakeWord(line); word && shuffled.size() < kWords)
        shuffled.push_back(*word);
    sorted = shuffled;
    std::ranges::sort(sorted, [this](Word const & a, Word const & b) {
      UErrorCode status = U_ZERO_ERROR;
      return ucol_strcollUTF8(shifted, a.utf8.data(), static_cast<int>(a.utf8.size()),
                              b.utf8.data(), static_cast<int>(b.utf8.size()), &status) < 0;
    });
  }
};

Corpus const & TheCorpus() {
  static Corpus const corpus;
  return corpus;
}

enum class List { Shuffled, Sorted };

std::vector<Word> const & Words(List list) {
  return list == List::Shuffled ? TheCorpus().shuffled : TheCorpus().sorted;
}

/// Calls `work` with each word of the list and the next one, over and over.
template <class Work>
void Over(benchmark::State & state, List list, Work work) {
  std::vector<Word> const & words = Words(list);
  if (words.empty()) {
    state.SkipWithError("no word list; install wngerman");
    return;
  }
  std::size_t i = 0;
  for (auto _ : state) {
    std::size_t const next = i + 1 == words.size() ? 0 : i + 1;
    benchmark::DoNotOptimize(work(words[i], words[next]));
    i = next;
  }
}

void Compare8(benchmark::State & state, List list, unsigned short flags) {
  Over(state, list, [=](Word const & a, Word const & b) {
    return ZnStrCmp(1, kGerman, a.latin1.c_str(), 1, kGerman, b.latin1.c_str(), flags, -1, 1,
                    nullptr);
  });
}

void Compare16(benchmark::State & state, List list, unsigned short flags) {
  Over(state, list, [=](Word const & a, Word const & b) {
    return ZnStrCmp(253, kGerman, reinterpret_cast<char const *>(a.utf16.c_str()), 253, kGerman,
                    reinterpret_cast<char const *>(b.utf16.c_str()), flags, -1, 1, nullptr);
  });
}

void Collate8(benchmark::State & state, List list, bool shifted) {
  UCollator const * const collator = shifted ? TheCorpus().shifted : TheCorpus().plain;
  Over(state, list, [=](Word const & a, Word const & b) {
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator, a.utf8.c_str(), -1, b.utf8.c_str(), -1, &status);
  });
}

void Collate16(benchmark::State & state, List list, bool shifted) {
  UCollator const * const collator = shifted ? TheCorpus().shifted : TheCorpus().plain;
  Over(state, list, [=](Word const & a, Word const & b) {
    return ucol_strcoll(collator, a.utf16.c_str(), -1, b.utf16.c_str(), -1);
  });
}

BENCHMARK_CAPTURE(Compare8, shuffled, List::Shuffled, 0x10)->Name("Order8/shuffled");
BENCHMARK_CAPTURE(Compare8, sorted, List::Sorted, 0x10)->Name("Order8/sorted");
BENCHMARK_CAPTURE(Compare8, sortedPattern, List::Sorted, 0)->Name("Order8Pattern/sorted");
BENCHMARK_CAPTURE(Compare8, shuffledPattern, List::Shuffled, 0)->Name("Order8Pattern/shuffled");
BENCHMARK_CAPTURE(Collate8, shuffled, List::Shuffled, false)->Name("IcuUtf8/shuffled");
BENCHMARK_CAPTURE(Collate8, sorted, List::Sorted, false)->Name("IcuUtf8/sorted");
BENCHMARK_CAPTURE(Collate8, shuffledShifted, List::Shuffled, true)->Name("IcuUtf8Shifted/shuffled");
BENCHMARK_CAPTURE(Collate8, sortedShifted, List::Sorted, true)->Name("IcuUtf8Shifted/sorted");
BENCHMARK_CAPTURE(Compare16, shuffled, List::Shuffled, 0x10)->Name("Order16/shuffled");
BENCHMARK_CAPTURE(Compare16, sorted, List::Sorted, 0x10)->Name("Order16/sorted");
BENCHMARK_CAPTURE(Collate16, shuffled, List::Shuffled, false)->Name("Icu16/shuffled");
BENCHMARK_CAPTURE(Collate16, sorted, List::Sorted, false)->Name("Icu16/sorted");
BENCHMARK_CAPTURE(Collate16, shuffledShifted, List::Shuffled, true)->Name("Icu16Shifted/shuffled");
BENCHMARK_CAPTURE(Collate16, sortedShifted, List::Sorted, true)->Name("Icu16Shifted/sorted");

void Match(benchmark::State & state, char const * pattern, unsigned short flags) {
  Over(state, List::Shuffled, [=](Word const & word, Word const &) {
    return ZnStrCmp(1, kGerman, word.latin1.c_str(), 1, kGerman, pattern, flags, -1, 1, nullptr);
  });
}

void FnMatch(benchmark::State & state, char const * pattern) {
  Over(state, List::Shuffled,
       [=](Word const & word, Word const &) { return fnmatch(pattern, word.latin1.c_str(), 0); });
}

/// Looks for the longest literal of the pattern anywhere, which is less than the pattern asks.
void Search(benchmark::State & state, char16_t const * literal) {
  UErrorCode status = U_ZERO_ERROR;
  UStringSearch * const search =
      usearch_openFromCollator(literal, -1, u"-", 1, TheCorpus().plain, nullptr, &status);
  Over(state, List::Shuffled, [=](Word const & word, Word const &) {
    UErrorCode code = U_ZERO_ERROR;
    usearch_setText(search, word.utf16.data(), static_cast<int>(word.utf16.size()), &code);
    return usearch_first(search, &code);
  });
  usearch_close(search);
}

BENCHMARK_CAPTURE(Match, start, "ab*", 0)->Name("Match/start");
BENCHMARK_CAPTURE(Match, end, "*ung", 0)->Name("Match/end");
BENCHMARK_CAPTURE(Match, middle, "*heit*", 0)->Name("Match/middle");
BENCHMARK_CAPTURE(Match, mixed, "a?b*c*", 0)->Name("Match/mixed");
BENCHMARK_CAPTURE(Match, letters, "*heit*", 0x60)->Name("MatchLetters/middle");
BENCHMARK_CAPTURE(FnMatch, start, "ab*")->Name("fnmatch/start");
BENCHMARK_CAPTURE(FnMatch, end, "*ung")->Name("fnmatch/end");
BENCHMARK_CAPTURE(FnMatch, middle, "*heit*")->Name("fnmatch/middle");
BENCHMARK_CAPTURE(FnMatch, mixed, "a?b*c*")->Name("fnmatch/mixed");
BENCHMARK_CAPTURE(Search, start, u"ab")->Name("IcuSearch/start");
BENCHMARK_CAPTURE(Search, end, u"ung")->Name("IcuSearch/end");
BENCHMARK_CAPTURE(Search, middle, u"heit")->Name("IcuSearch/middle");
BENCHMARK_CAPTURE(Search, mixed, u"b")->Name("IcuSearch/mixed");

void Hash8(benchmark::State & state) {
  Over(state, List::Shuffled, [](Word const & word, Word const &) {
    return HashString(1, kGerman, const_cast<char *>(word.latin1.c_str()), -1, 1);
  });
}

void Hash16(benchmark::State & state) {
  Over(state, List::Shuffled, [](Word const & word, Word const &) {
    return HashString(253, kGerman,
                      const_cast<char *>(reinterpret_cast<char const *>(word.utf16.c_str())), -1,
                      1);
  });
}

void SortKey(benchmark::State & state) {
  Over(state, List::Shuffled, [](Word const & word, Word const &) {
    unsigned char key[512];
    return ucol_getSortKey(TheCorpus().plain, word.utf16.data(),
                           static_cast<int>(word.utf16.size()), key, sizeof key);
  });
}

BENCHMARK(Hash8)->Name("Hash8/words");
BENCHMARK(Hash16)->Name("Hash16/words");
BENCHMARK(SortKey)->Name("IcuSortKey/words");

} // namespace
