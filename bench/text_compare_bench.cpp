#include "zantms.h"

#include <benchmark/benchmark.h>
#include <fnmatch.h>
#include <unicode/ucol.h>
#include <unicode/usearch.h>

#include <algorithm>
#include <cstring>
#include <fstream>
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

constexpr unsigned char kGerman = 1;   // as for English, nothing is tailored
constexpr unsigned char kSwedish = 78; // has letters of its own
constexpr std::size_t kWords = 100000;

/// One word in each encoding, with its terminator. The words of a list lie behind one another, so
/// that the texts and not the memory are measured.
struct Word {
  char const * utf8;
  char const * latin1;
  char16_t const * utf16;
};

/// Code set 1 of a UTF-8 text; empty if it has a character that code set 1 lacks.
std::string Latin1(std::string const & utf8) {
  std::string latin1;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    unsigned int c = static_cast<unsigned char>(utf8[i]);
    if (c >= 0x80) {
      if (c >> 2 != 0x30 || i + 1 == utf8.size())
        return {};
      c = (c & 3) << 6 | (static_cast<unsigned char>(utf8[++i]) & 0x3F);
    }
    latin1 += static_cast<char>(c);
  }
  return latin1;
}

class WordList {
public:
  explicit WordList(std::vector<std::string> const & lines) {
    for (std::string const & line : lines) {
      utf8_ += line + '\0';
      for (char const c : Latin1(line) + '\0') {
        latin1_ += c;
        utf16_ += static_cast<unsigned char>(c);
      }
    }
    Word word{utf8_.data(), latin1_.data(), utf16_.data()};
    for (std::string const & line : lines) {
      words.push_back(word);
      std::size_t const length = std::strlen(word.latin1) + 1;
      word = {word.utf8 + line.size() + 1, word.latin1 + length, word.utf16 + length};
    }
  }
  WordList(WordList const &) = delete;

  std::vector<Word> words;

private:
  std::string utf8_;
  std::string latin1_;
  std::u16string utf16_;
};

UCollator * OpenCollator(bool shifted, char const * language = "de") {
  UErrorCode status = U_ZERO_ERROR;
  UCollator * const collator = ucol_open(language, &status);
  if (shifted) {
    ucol_setAttribute(collator, UCOL_ALTERNATE_HANDLING, UCOL_SHIFTED, &status);
    ucol_setStrength(collator, UCOL_QUATERNARY);
  }
  return collator;
}

UCollator const * Collator(bool shifted) {
  static UCollator const * const collators[] = {OpenCollator(false), OpenCollator(true)};
  return collators[shifted];
}

UCollator const * Swedish() {
  static UCollator const * const collator = OpenCollator(false, "sv");
  return collator;
}

std::vector<std::string> Lines() {
  std::ifstream file("/usr/share/dict/ngerman");
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);)
    if (!Latin1(line).empty())
      lines.push_back(line);
  std::mt19937 random(1);
  std::ranges::shuffle(lines, random);
  lines.resize(std::min(lines.size(), kWords));
  return lines;
}

std::vector<std::string> SortedLines() {
  std::vector<std::string> lines = Lines();
  std::ranges::sort(lines, [](std::string const & a, std::string const & b) {
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(Collator(true), a.c_str(), -1, b.c_str(), -1, &status) < 0;
  });
  return lines;
}

enum class List { Shuffled, Sorted };

std::vector<Word> const & Words(List list) {
  static WordList const shuffled(Lines()), sorted(SortedLines());
  return (list == List::Shuffled ? shuffled : sorted).words;
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
    return ZnStrCmp(1, kGerman, a.latin1, 1, kGerman, b.latin1, flags, -1, 1, nullptr);
  });
}

void Compare16(benchmark::State & state, List list, unsigned char language) {
  Over(state, list, [=](Word const & a, Word const & b) {
    return ZnStrCmp(253, language, reinterpret_cast<char const *>(a.utf16), 253, language,
                    reinterpret_cast<char const *>(b.utf16), 0x10, -1, 1, nullptr);
  });
}

void Collate8(benchmark::State & state, List list, bool shifted) {
  UCollator const * const collator = Collator(shifted);
  Over(state, list, [=](Word const & a, Word const & b) {
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator, a.utf8, -1, b.utf8, -1, &status);
  });
}

void Collate16(benchmark::State & state, List list, UCollator const * collator) {
  Over(state, list, [=](Word const & a, Word const & b) {
    return ucol_strcoll(collator, a.utf16, -1, b.utf16, -1);
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
BENCHMARK_CAPTURE(Compare16, shuffled, List::Shuffled, kGerman)->Name("Order16/shuffled");
BENCHMARK_CAPTURE(Compare16, sorted, List::Sorted, kGerman)->Name("Order16/sorted");
BENCHMARK_CAPTURE(Compare16, shuffledSwedish, List::Shuffled, kSwedish)->Name("Order16Sv/shuffled");
BENCHMARK_CAPTURE(Compare16, sortedSwedish, List::Sorted, kSwedish)->Name("Order16Sv/sorted");
BENCHMARK_CAPTURE(Collate16, shuffled, List::Shuffled, Collator(false))->Name("Icu16/shuffled");
BENCHMARK_CAPTURE(Collate16, sorted, List::Sorted, Collator(false))->Name("Icu16/sorted");
BENCHMARK_CAPTURE(Collate16, shuffledShifted, List::Shuffled, Collator(true))
    ->Name("Icu16Shifted/shuffled");
BENCHMARK_CAPTURE(Collate16, sortedShifted, List::Sorted, Collator(true))
    ->Name("Icu16Shifted/sorted");
BENCHMARK_CAPTURE(Collate16, shuffledSwedish, List::Shuffled, Swedish())->Name("Icu16Sv/shuffled");
BENCHMARK_CAPTURE(Collate16, sortedSwedish, List::Sorted, Swedish())->Name("Icu16Sv/sorted");

void Match(benchmark::State & state, char const * pattern, unsigned short flags) {
  Over(state, List::Shuffled, [=](Word const & word, Word const &) {
    return ZnStrCmp(1, kGerman, word.latin1, 1, kGerman, pattern, flags, -1, 1, nullptr);
  });
}

void FnMatch(benchmark::State & state, char const * pattern) {
  Over(state, List::Shuffled,
       [=](Word const & word, Word const &) { return fnmatch(pattern, word.latin1, 0); });
}

/// Looks for the longest literal of the pattern anywhere, which is less than the pattern asks.
void Search(benchmark::State & state, char16_t const * literal) {
  UErrorCode status = U_ZERO_ERROR;
  UStringSearch * const search =
      usearch_openFromCollator(literal, -1, u"-", 1, Collator(false), nullptr, &status);
  Over(state, List::Shuffled, [=](Word const & word, Word const &) {
    UErrorCode code = U_ZERO_ERROR;
    usearch_setText(search, word.utf16, -1, &code);
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
    return HashString(1, kGerman, const_cast<char *>(word.latin1), -1, 1);
  });
}

void Hash16(benchmark::State & state) {
  Over(state, List::Shuffled, [](Word const & word, Word const &) {
    return HashString(253, kGerman, const_cast<char *>(reinterpret_cast<char const *>(word.utf16)),
                      -1, 1);
  });
}

void SortKey(benchmark::State & state) {
  Over(state, List::Shuffled, [](Word const & word, Word const &) {
    unsigned char key[512];
    return ucol_getSortKey(Collator(false), word.utf16, -1, key, sizeof key);
  });
}

BENCHMARK(Hash8)->Name("Hash8/words");
BENCHMARK(Hash16)->Name("Hash16/words");
BENCHMARK(SortKey)->Name("IcuSortKey/words");

} // namespace
