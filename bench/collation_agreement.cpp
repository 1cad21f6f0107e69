#include <zanin.h>
#include <zantms.h>

#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

/// How far our order agrees with ICU's collator of the language: sorts a word list by `ZnStrCmp`
/// and asks ICU about each pair of neighbours.
///
///     collation_agreement LANGUAGE FILE [SHOW [off]]
///
/// LANGUAGE is a BCP 47 tag, FILE has a word a line in UTF-8 or ISO 8859-1. Prints the share of
/// agreeing pairs, the number of pairs that the two tell apart on different levels, and the first
/// SHOW disagreeing pairs of each kind. With "off" ICU does not put upper case first in any
/// language. Exit status 1 below 99.9 %.
///
/// ICU compares as our order does: shifted (spaces and punctuation on the fourth level),
/// quaternary, secondary differences from the end.

namespace {

using Word = std::u16string;

std::vector<Word> ReadWords(char const * path) {
  std::ifstream file(path, std::ios::binary);
  std::string const bytes((std::istreambuf_iterator<char>(file)), {});
  icu::UnicodeString text = icu::UnicodeString::fromUTF8(bytes);
  if (text.indexOf(static_cast<char16_t>(0xFFFD)) >= 0)
    text = icu::UnicodeString(bytes.data(), static_cast<int>(bytes.size()), "ISO-8859-1");
  std::vector<Word> words;
  Word word;
  for (int i = 0; i < text.length(); ++i) {
    if (text[i] != u'\n') {
      word += text[i];
      continue;
    }
    if (!word.empty())
      words.push_back(word);
    word.clear();
  }
  std::sort(words.begin(), words.end());
  words.erase(std::unique(words.begin(), words.end()), words.end());
  std::shuffle(words.begin(), words.end(), std::mt19937(1));
  return words;
}

int Compare(unsigned char language, Word const & a, Word const & b, int flags) {
  return ZnStrCmp(253, language, reinterpret_cast<char const *>(a.c_str()), 253, language,
                  reinterpret_cast<char const *>(b.c_str()),
                  static_cast<unsigned short>(ZnCmpNoWildcards | flags), -1, 1, nullptr);
}

/// The level on which we tell two words apart: 1 to 4, or 5 for none.
int OurLevel(unsigned char language, Word const & a, Word const & b) {
  int const symbols = ZnCmpIgnoreSpaces | ZnCmpIgnoreSymbols;
  int const ignore[] = {symbols | ZnCmpIgnoreCase | ZnCmpIgnoreAccents, symbols | ZnCmpIgnoreCase,
                        symbols, 0};
  for (int level = 0; level < 4; ++level) {
    if (Compare(language, a, b, ignore[level]) != 0)
      return level + 1;
  }
  return 5;
}

std::unique_ptr<icu::Collator> MakeCollator(char const * tag, UColAttributeValue strength,
                                            bool caseFirstOff) {
  UErrorCode error = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> collator(
      icu::Collator::createInstance(icu::Locale::forLanguageTag(tag, error), error));
  collator->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_SHIFTED, error);
  collator->setAttribute(UCOL_FRENCH_COLLATION, UCOL_ON, error);
  collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, error);
  collator->setAttribute(UCOL_STRENGTH, strength, error);
  if (caseFirstOff)
    collator->setAttribute(UCOL_CASE_FIRST, UCOL_OFF, error);
  if (U_FAILURE(error))
    std::printf("no collator for %s\n", tag);
  return collator;
}

std::string Utf8(Word const & word) {
  std::string out;
  icu::UnicodeString(word.data(), static_cast<int>(word.size())).toUTF8String(out);
  return out;
}

} // namespace

int main(int argc, char ** argv) {
  if (argc < 3)
    return 2;
  ZnLanguage const * language = ZnLanguageContext::FindLanguage(argv[1]);
  if (language == nullptr)
    return 2;
  std::size_t const show = argc > 3 ? std::stoul(argv[3]) : 0;
  std::vector<std::unique_ptr<icu::Collator>> collators;
  for (UColAttributeValue strength : {UCOL_PRIMARY, UCOL_SECONDARY, UCOL_TERTIARY, UCOL_QUATERNARY})
    collators.push_back(MakeCollator(argv[1], strength, argc > 4));

  std::vector<Word> words = ReadWords(argv[2]);
  std::stable_sort(words.begin(), words.end(), [&](Word const & a, Word const & b) {
    return Compare(language->id, a, b, 0) < 0;
  });

  auto ask = [](icu::Collator const & collator, Word const & a, Word const & b) {
    UErrorCode error = U_ZERO_ERROR;
    return collator.compare(a.data(), static_cast<int>(a.size()), b.data(),
                            static_cast<int>(b.size()), error);
  };
  std::map<std::pair<int, int>, std::vector<std::size_t>> kinds;
  std::size_t wrong = 0;
  for (std::size_t i = 1; i < words.size(); ++i) {
    UCollationResult const icuOrder = ask(*collators[3], words[i - 1], words[i]);
    int const ours = Compare(language->id, words[i - 1], words[i], 0);
    if ((ours < 0) == (icuOrder == UCOL_LESS) && (ours == 0) == (icuOrder == UCOL_EQUAL))
      continue;
    ++wrong;
    int level = 1;
    while (level < 5 && ask(*collators[static_cast<std::size_t>(level - 1)], words[i - 1],
                            words[i]) == UCOL_EQUAL)
      ++level;
    kinds[{OurLevel(language->id, words[i - 1], words[i]), level}].push_back(i);
  }
  double const share = words.size() < 2 ? 1.0 : 1.0 - double(wrong) / double(words.size() - 1);
  std::printf("%-18s %8zu words  %6zu disagree  %.4f %%\n", argv[1], words.size(), wrong,
              100 * share);
  for (auto const & [levels, places] : kinds) {
    std::printf("  ours on level %d, ICU's on level %d: %zu\n", levels.first, levels.second,
                places.size());
    for (std::size_t i = 0; i < std::min(show, places.size()); ++i)
      std::printf("    %s | %s\n", Utf8(words[places[i] - 1]).c_str(),
                  Utf8(words[places[i]]).c_str());
  }
  return share < 0.999 ? 1 : 0;
}
