#pragma once

#include "znstring/collate.h"

/// Patterns of the two older string classes: `*` stands for any text, `?` for one byte, `\` makes
/// the next byte a literal, of which `n`, `r` and `t` stand for line feed, carriage return and tab.
///
/// Worked example: "a*c" matches "abc"; "a\*c" matches "a*c" alone.

namespace zntms {

/// The place of the first wildcard or escape in a pattern, or `kNoWildcard`.
inline constexpr unsigned int kNoWildcard = ~0u;
unsigned int FindIStringWildcard(Weights const & weights, CollatedText const & pattern);

/// Whether a text matches. Bytes match by weight and second code. Where the text is in weights and
/// the pattern asks for more than one weight can tell, it counts as matched.
bool MatchesIString(Weights const & weights, CollatedText const & text,
                    CollatedText const & pattern);

} // namespace zntms
