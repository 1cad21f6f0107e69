#pragma once

/// Comparison of text of code set 0 on both sides: bytes, without language.

namespace zntms {

/// Matches `text` against a pattern in which `*` stands for any bytes and `?` for any one byte.
/// 0 for a match. `limit` is the number of pattern characters to look at, negative for all.
///
/// A pattern that ends while text is left does not match, even where a later occurrence behind
/// an asterisk would: "*b" takes the first `b` of "abab" and leaves "ab".
int MatchBytes(char const * pattern, char const * text, int limit);

/// Order of unsigned bytes. A positive `limit` is the number of bytes to look at.
int CompareBytes(char const * a, char const * b, int limit);

} // namespace zntms
