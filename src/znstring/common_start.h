#pragma once

#include "znstring/order_reader.h"

#include <cstddef>

/// How much of two texts need not be looked at because their bytes agree.
///
/// Equal characters give equal order units and so no difference on any level, provided that the
/// reading of both texts reaches the end of the common start with nothing pending. What may hang
/// over is a contraction: with `c` and `h` joining to one letter, "ac" is common to "acd" and
/// "ach", but only `a` may be skipped. So the common start is taken back to a place which no
/// contraction can span. Expansions belong to one character and never hang over.

namespace zntms {

/// The characters that the longest contraction of the order tables takes, those aside that may
/// stand in one any number of times, see `MayRepeat`. A test holds it.
inline constexpr unsigned int kLongestContraction = 6;

/// Whether a character may be one that a contraction takes any number of: a mark or a format
/// character that changes nothing. Letters are none.
template <int Width>
inline bool MayRepeat(unsigned short c, Shortcut shortcut) {
  return c >= kFirstThatRepeats<Width> && (shortcut.Order() & 0xC000) != 0x4000;
}

/// What two texts begin with, up to the first characters that differ, or up to the end of both.
struct EqualStart {
  std::size_t count = 0;
  unsigned int characters = 0; ///< all of them, one or another; may be more than they are
};

/// Texts of one byte a character are compared in words of eight, as far as both are known to reach.
EqualStart CountEqualBytes(char const * a, char const * b);

/// Moves `place` over what two texts have in common from there on, and gives all characters passed,
/// one or another, in `characters`. True if both texts end there.
template <int Width>
inline bool PassEqual(char const * a, char const * b, std::size_t & place,
                      unsigned int & characters) {
  characters = 0;
  if constexpr (Width == 1) {
    if (a[place] != b[place])
      return false;
    EqualStart const equal = CountEqualBytes(a + place, b + place);
    place += equal.count;
    characters = equal.characters;
    return (a[place] | b[place]) == 0;
  } else {
    for (;; place += Width) {
      unsigned int const c = ReadCharacter<Width>(a + place);
      if (c != ReadCharacter<Width>(b + place))
        return false;
      if (c == 0)
        return true;
      characters |= c;
    }
  }
}

/// Marks a common start that ends with the terminator: the texts are the same.
inline constexpr unsigned int kSameText = ~0u;

/// Characters that both texts, of one code set and language, begin with and that comparison may
/// skip; `kSameText` if the texts are the same. `source` is that of either text.
template <int Width>
inline unsigned int CommonStart(char const * a, char const * b, OrderSource & source) {
  std::size_t bytes = 0;
  unsigned int characters = 0;
  if (PassEqual<Width>(a, b, bytes, characters))
    return kSameText;
  unsigned int const equal = static_cast<unsigned int>(bytes / Width);
  if (equal == 0)
    return 0;
  auto const at = [](char const * text, unsigned int i) {
    return ReadCharacter<Width>(text + i * Width);
  };
  unsigned int end = equal;
  for (unsigned int back = 1; back < kLongestContraction && back <= end;) {
    unsigned int const place = end - back;
    bool const joins = MayRepeat<Width>(at(a, place), source.ShortcutOf(at(a, place))) ||
                       source.Joins(at(a, place), at(a, place + 1)) ||
                       (place + 1 == equal && source.Joins(at(a, place), at(b, place + 1)));
    if (joins) {
      end = place;
      back = 1;
    } else {
      ++back;
    }
  }
  // A character that leaves the class as it is needs the class of what stands before it.
  auto const keepsClass = [&](unsigned short c) {
    return c != 0 && (source.ShortcutOf(c).Traits() & ZnPlainOrder::NoEntry) != 0 &&
           !MarksClassOfIdeographs(c);
  };
  return keepsClass(at(a, end)) || keepsClass(at(b, end)) ? 0 : end;
}

} // namespace zntms
