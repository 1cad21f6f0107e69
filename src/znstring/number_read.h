#pragma once

/// Whole numbers read from the start of a text, with the results that `strtol` and `atoi` give
/// where a long has 32 bits, but without a look at the locale.
///
/// Worked example: `ReadInteger("  -0x1Fzz", 0)` is -31; the same text with base 10 gives 0.

namespace zntms {

/// White space, a sign and digits; base 10, or 0 for the base that the prefix tells: 0x 16, 0 8,
/// else 10. The text ends with a zero byte. What does not fit gives the nearest limit of
/// `Number`, which is `int` or `long long`; a text without number gives 0.
template <class Number>
Number ReadInteger(char const * text, int base);

extern template int ReadInteger<int>(char const *, int);
extern template long long ReadInteger<long long>(char const *, int);

/// The start of a number in two-byte text, as one-byte text for the reader above: without leading
/// white space, with zeros in front of the number drawn together so that padding does not use up
/// the room. Ends before the first character of 256 and above.
struct NarrowNumber {
  char text[32];

  /// `wide` ends with a zero unit.
  explicit NarrowNumber(char const * wide);
};

} // namespace zntms
