#include "znstring/common_start.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace zntms {

namespace {

using Word = unsigned long long;
constexpr std::size_t kWordBytes = sizeof(Word);

/// The first of two pairs of words that differ: where it is, and in which bits; 0 for none.
struct DifferingWord {
  std::size_t place;
  Word bits;
};

/// Chooses without a branch, for where texts differ is hard to predict.
constexpr DifferingWord First(DifferingWord const & a, DifferingWord const & b) {
  Word const takeB = Word{0} - static_cast<Word>(a.bits == 0);
  return {a.place ^ ((a.place ^ b.place) & takeB), a.bits | (b.bits & takeB)};
}

/// Looks at places of two texts, and keeps all bytes seen, one or another.
class WordPairs {
public:
  WordPairs(char const * a, char const * b) : a_(a), b_(b) {}

  DifferingWord At(std::size_t place) {
    Word x, y;
    std::memcpy(&x, a_ + place, sizeof x);
    std::memcpy(&y, b_ + place, sizeof y);
    seen_ |= x | y;
    return {place, x ^ y};
  }

  Word Seen() const { return seen_; }

private:
  char const * a_;
  char const * b_;
  Word seen_ = 0;
};

constexpr unsigned int CharactersIn(Word seen) {
  return (seen & 0x8080808080808080) != 0 ? 255 : 127;
}

} // namespace

EqualStart CountEqualBytes(char const * a, char const * b) {
  WordPairs pairs(a, b);
  std::size_t start = 0;
  for (std::size_t block = 31;; block = std::min<std::size_t>(2 * block + 1, 4095)) {
    // Behind characters of both there is at least an end.
    std::size_t const bytes = strnlen(b + start, strnlen(a + start, block)) + 1;
    std::size_t const end = start + bytes;
    if (bytes < kWordBytes) {
      Word seen = pairs.Seen();
      for (; a[start] == b[start] && a[start] != 0; ++start)
        seen |= static_cast<unsigned char>(a[start]);
      return {start, CharactersIn(seen)};
    }
    // The last word may overlap the one before.
    std::size_t place = std::min(start + kWordBytes, end - kWordBytes);
    DifferingWord word = First(pairs.At(start), pairs.At(place));
    while (word.bits == 0 && place != end - kWordBytes)
      [[unlikely]] {
        place = std::min(place + kWordBytes, end - kWordBytes);
        word = pairs.At(place);
      }
    if (word.bits != 0)
      return {word.place + static_cast<unsigned int>(std::countr_zero(word.bits)) / 8,
              CharactersIn(pairs.Seen())};
    if (a[end - 1] == 0)
      return {end - 1, CharactersIn(pairs.Seen())};
    start = end;
  }
}

} // namespace zntms
