#pragma once

#include <zantms.h>

#include <string>
#include <string_view>

/// The door between the UTF-8 of the outside world and `ZnString`.
///
/// Worked example: "Ulm" comes in as a text of the default 8-bit code set, "Köln" as one of code
/// set 253; both go out as UTF-8 again.

namespace zantm {

/// What texts that come in are labelled with.
struct TextOptions {
  unsigned char codeSet = 255;  ///< 255: 8-bit if the text is ASCII, else 253
  unsigned char language = 255; ///< 255: the default language
};

/// Process-wide, set by the options of the command line before any text comes in.
TextOptions & DefaultText();

/// Reads UTF-8 into `out`. False if it is no UTF-8, holds a character that code set 253 or the
/// code set asked for lacks, or is longer than a `ZnString` can be; `out` is then of no use.
bool FromUtf8(std::string_view text, ZnString & out);
/// The same, with a `Failure` for a text that cannot be held.
ZnString ZnStringOf(std::string_view text);

/// An empty text to print into: of code set 253, so that no character gets lost on the way out.
ZnString Output();

std::string ToUtf8(ZnString const & text);
/// Appends to `out`.
void AppendUtf8(std::string & out, ZnString const & text);

} // namespace zantm
