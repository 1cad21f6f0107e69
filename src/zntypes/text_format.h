#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The format of a text: `%s` with flag `-`, width and precision, and `%%`; all else is text.
///
/// Worked example: "abc" by "<%5.2s>%%" is "<   ab>%".
///
/// The first `%s` takes the text, any further one stays as it is written. The result is cut where
/// it would pass the text, the format and 512 bytes more: a format cannot ask for gigabytes.

namespace zntms {

/// A format carried out around a text of any width: what stands before and behind it, and how many
/// of its first characters stand between.
struct FormattedAround {
  std::string before;
  std::size_t length = 0;
  std::string after;
};

FormattedAround FormatAround(std::string_view format, std::size_t length);

/// The same on a text of one byte a character, put together.
std::string FormatText(std::string_view format, std::string_view text);

} // namespace zntms
