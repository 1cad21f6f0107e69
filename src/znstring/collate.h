#pragma once

#include <array>
#include <string_view>

#include "znistring.h"

/// The order of the two older string classes: a weight for each byte.
///
/// Worked example: in `ZnIString` the letters `a` and `A` weigh 4E and 54, the a with diaeresis
/// (E4) weighs 4E with accent code 1: the same letter, directly behind it where accents count. The
/// sharp s (DF) weighs 9C twice.

namespace zntms {

/// Weight of a byte. Of the second codes those below `kFirstSecondWeight` are accents (1 diaeresis
/// or cedilla, 2 acute, 3 grave, 4 circumflex, 5 tilde), the others a second weight that follows.
struct Weight {
  unsigned char first;
  unsigned char second;

  constexpr bool IsPair() const { return second >= 9; }
  constexpr bool operator==(Weight const &) const = default;
};

using Weights = std::array<Weight, 256>;
extern Weights const kCasedWeights;
extern Weights const kCaselessWeights;

constexpr Weights const & WeightsOf(ZnCollation collation) {
  return collation == ZnCollation::cased ? kCasedWeights : kCaselessWeights;
}

inline Weight ZnCollateByte(Weights const & weights, char c) {
  return weights[static_cast<unsigned char>(c)];
}

/// A text, plain or in weights. It ends at a zero byte or with the view, whichever comes first; a
/// view without data is a null text.
struct CollatedText {
  std::string_view bytes;
  unsigned char mark;

  bool InWeights() const { return (mark & ZnCollationMark::Weights) != 0; }
};

/// Compares by weights, at most `limit` of them; negative, 0 or positive. Accents count if the
/// first mark has `ZnCollationMark::Accents`.
inline constexpr unsigned int kNoLimit = ~0u;
int ZnCollateCompare(Weights const & weights, CollatedText const & a, CollatedText const & b,
                     unsigned int limit = kNoLimit);

} // namespace zntms
