#pragma once

/// How much of an index a comparison with text selects.
///
/// Worked example: in an index from "aa" to "az" the pattern "ab*" has the range from "ab" to "ab"
/// and the largest unit. All four begin with an `a`, which tells nothing and is left out. What
/// follows stands for numbers, of which three letters count: those of `b`, of `b` and the largest
/// unit, of `a` and of `z`. The share is what lies between the first two, of what lies between the
/// last two.

namespace zntms {

inline constexpr unsigned int kNoLength = 65535;

/// A text with a terminator; order text in the byte order of the host.
struct BoundText {
  unsigned char codeSet;
  unsigned char language;
  char const * text;
  unsigned int length; ///< characters that count, `kNoLength` for all
};

struct EstimateTexts {
  BoundText low, high;         ///< what equals the constant lies between these
  BoundText areaLow, areaHigh; ///< the end keys of the index
};

/// The share. `op` has the operator, `cmpOp` the flags of the comparison, and `mask` the bits of
/// letters that it ignores; `byteOrder` is that of two-byte texts which are no order text.
float ShareOfArea(EstimateTexts const & texts, unsigned short op, unsigned short cmpOp,
                  unsigned short mask, unsigned char byteOrder);

} // namespace zntms
