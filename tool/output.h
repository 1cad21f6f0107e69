#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// What goes to standard output.

namespace zantm {

/// Writes through a buffer; a pipe whose reader has gone ends the process without a word, any
/// other error with a `Failure`.
void Write(std::string_view text);
void Flush();

/// A line on standard error: `zantm: TEXT`.
void Report(std::string_view text);

/// Pads to `width` characters of UTF-8, at the left end if `right`.
std::string Padded(std::string_view text, size_t width, bool right = false);
/// Characters of a UTF-8 text.
size_t Width(std::string_view text);

/// A field of a CSV row, quoted if it must be.
std::string CsvQuoted(std::string_view text);

} // namespace zantm
