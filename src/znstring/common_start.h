#pragma once

#include "znstring/order_reader.h"

#include <algorithm>
#include <cstring>

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

/// Marks a common start that ends with the terminator: the texts are the same.
inline constexpr unsigned int kSameText = ~0u;

/// Number of equal characters at the start, or `kSameText`.
template <int Width>
inline unsigned int CountEqual(char const * a, char const * b) {
  unsigned int i = 0;
  if constexpr (Width == 1) {
    // Short starts are the rule. Behind them blocks are worth their cost: a block is as long as
    // both texts are known to be.
    for (; i < 24; ++i) {
      if (a[i] != b[i])
        return i;
      if (a[i] == 0)
        return kSameText;
    }
    for (std::size_t block = 64;; block = std::min<std::size_t>(block * 2, 4096)) {
      std::size_t const length = strnlen(b + i, strnlen(a + i, block));
      std::size_t done = 0;
      for (; done + 8 <= length; done += 8) {
        unsigned long long x, y;
        std::memcpy(&x, a + i + done, 8);
        std::memcpy(&y, b + i + done, 8);
        if (x != y)
          break;
      }
      while (done < length && a[i + done] == b[i + done])
        ++done;
      i += static_cast<unsigned int>(done);
      if (done < block) {
        if (a[i] != b[i])
          return i;
        if (a[i] == 0)
          return kSameText;
      }
    }
  } else {
    for (;; ++i) {
      unsigned short const x = ReadCharacter<2>(a + 2 * i);
      if (x != ReadCharacter<2>(b + 2 * i))
        return i;
      if (x == 0)
        return kSameText;
    }
  }
}

/// Characters that both texts, of one code set and language, begin with and that comparison may
/// skip; `kSameText` if the texts are the same. `source` is that of either text.
template <int Width>
inline unsigned int CommonStart(char const * a, char const * b, OrderSource & source) {
  unsigned int const equal = CountEqual<Width>(a, b);
  if (equal == 0 || equal == kSameText)
    return equal;
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
