#include "ident/byte_search.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <functional>

/// Search for bytes.
///
/// A filter looks at two bytes of the pattern only, at 64 places of the text at once. A place that
/// passes is compared in whole; where it differs, the byte that told them apart becomes one of the
/// two that the filter looks at. Worked example: in a run of "a" the pattern "aabaa" is looked for
/// by its first and last byte, and the first place passes; it differs at the "b", and by that byte
/// no other place passes.
///
/// Text can be made such that places go on passing. Once comparing has cost more than filtering,
/// the two-way algorithm takes over (M. Crochemore, D. Perrin: Two-way string-matching, Journal of
/// the ACM 38, 1991), whose time is linear in every case and which needs no memory.

namespace zntms {
namespace {

using Byte = unsigned char;
using Index = std::ptrdiff_t;
constexpr std::size_t kNotFound = std::string_view::npos;

// ---- Two-way ------------------------------------------------------------------------------------

struct Suffix {
  Index before; ///< index of the byte ahead of the suffix, -1 for the whole pattern
  Index period;
};

/// The suffix of `x` that is greatest in the order of `less`, with its period.
template <class Less>
Suffix MaximalSuffix(Byte const * x, Index length, Less less) {
  Suffix suffix = {-1, 1};
  Index j = 0;
  Index k = 1;
  while (j + k < length) {
    Byte const a = x[j + k];
    Byte const b = x[suffix.before + k];
    if (less(a, b)) {
      j += k;
      k = 1;
      suffix.period = j - suffix.before;
    } else if (a != b) {
      suffix = {j, 1};
      ++j;
      k = 1;
    } else if (k != suffix.period) {
      ++k;
    } else {
      j += suffix.period;
      k = 1;
    }
  }
  return suffix;
}

/// The pattern falls into two parts at a place where its local period is the global one. The right
/// part is compared first, forward, then the left one, backward.
std::size_t TwoWay(Byte const * text, Index textLength, Byte const * x, Index length) {
  Suffix const up = MaximalSuffix(x, length, std::less<Byte>());
  Suffix const down = MaximalSuffix(x, length, std::greater<Byte>());
  auto [left, period] = up.before > down.before ? up : down;

  // A pattern that repeats itself in whole keeps what a shift by its period has matched already.
  bool const repeats = std::memcmp(x, x + period, static_cast<std::size_t>(left + 1)) == 0;
  if (!repeats)
    period = std::max(left + 1, length - left - 1) + 1;
  Index known = -1; // last index of the pattern that is known to match

  for (Index at = 0; at <= textLength - length;) {
    Index i = std::max(left, known) + 1;
    while (i < length && x[i] == text[at + i])
      ++i;
    if (i < length) {
      at += i - left;
      known = -1;
      continue;
    }
    for (i = left; i > known && x[i] == text[at + i]; --i) {
    }
    if (i <= known)
      return static_cast<std::size_t>(at);
    at += period;
    known = repeats ? length - period - 1 : -1;
  }
  return kNotFound;
}

// ---- Filter -------------------------------------------------------------------------------------

/// 16 bytes that the compiler keeps in one register.
using Lanes = Byte __attribute__((vector_size(16)));
constexpr std::size_t kLanes = sizeof(Lanes);
constexpr std::size_t kPlaces = 4 * kLanes;

Lanes LoadLanes(Byte const * at) {
  Lanes lanes;
  std::memcpy(&lanes, at, sizeof lanes);
  return lanes;
}

/// Two bytes of the pattern and where they stand in it.
class Filter {
public:
  Filter(Byte const * pattern, std::size_t length) : pattern_(pattern) {
    Watch(0, 0);
    Watch(1, length - 1);
  }

  /// From now on the byte at `offset` is watched, in place of the one that is watched for longer.
  void Learn(std::size_t offset) {
    if (offset == offset_[0] || offset == offset_[1])
      return;
    Watch(next_, offset);
    next_ = 1 - next_;
  }

  /// All bits of the lanes whose places pass.
  Lanes Pass(Byte const * at) const {
    return reinterpret_cast<Lanes>((LoadLanes(at + offset_[0]) == byte_[0]) &
                                   (LoadLanes(at + offset_[1]) == byte_[1]));
  }

private:
  void Watch(int which, std::size_t offset) {
    offset_[which] = offset;
    byte_[which] = Lanes{} + pattern_[offset];
  }

  Byte const * pattern_;
  std::size_t offset_[2];
  Lanes byte_[2];
  int next_ = 1;
};

bool Any(Lanes lanes) {
  std::uint64_t words[2];
  std::memcpy(words, &lanes, sizeof words);
  return (words[0] | words[1]) != 0;
}

std::size_t Mismatch(Byte const * a, Byte const * b, std::size_t length) {
  return static_cast<std::size_t>(std::mismatch(a, a + length, b).first - a);
}

} // namespace

std::size_t FindBytes(std::string_view text, std::string_view pattern) {
  if (pattern.size() <= 1)
    return pattern.empty() ? 0 : text.find(pattern.front());
  if (pattern.size() > text.size())
    return kNotFound;

  Byte const * const begin = reinterpret_cast<Byte const *>(text.data());
  Byte const * const x = reinterpret_cast<Byte const *>(pattern.data());
  std::size_t const length = pattern.size();
  std::size_t at = 0;
  std::size_t cost = 0; // bytes that comparing in whole has looked at
  Filter filter(x, length);

  while (at + kPlaces + length - 1 <= text.size() && cost <= at + 4 * length + 4096) {
    Lanes const pass[] = {filter.Pass(begin + at), filter.Pass(begin + at + kLanes),
                          filter.Pass(begin + at + 2 * kLanes),
                          filter.Pass(begin + at + 3 * kLanes)};
    if (Any(pass[0] | pass[1] | pass[2] | pass[3])) {
      std::uint64_t words[kPlaces / 8];
      std::memcpy(words, pass, sizeof words);
      for (std::size_t w = 0; w < kPlaces / 8; ++w) {
        for (; words[w] != 0;) {
          std::size_t const lane = static_cast<std::size_t>(std::countr_zero(words[w])) / 8;
          words[w] &= ~(std::uint64_t(0xFF) << (8 * lane));
          std::size_t const place = at + 8 * w + lane;
          std::size_t const same = Mismatch(x, begin + place, length);
          if (same == length)
            return place;
          filter.Learn(same);
          cost += same + 8;
        }
      }
    }
    at += kPlaces;
  }
  std::size_t const found =
      TwoWay(begin + at, static_cast<Index>(text.size() - at), x, static_cast<Index>(length));
  return found == kNotFound ? kNotFound : at + found;
}

} // namespace zntms
