#pragma once

#include <string>
#include <string_view>

/// The format of a text: `%s` with flag `-`, width and precision, and `%%`; all else is text.
///
/// Worked example: "abc" by "<%5.2s>%%" is "<   ab>%".
///
/// The first `%s` takes the text, any further one stays as it is written. The result is cut where
/// it would pass the text, the format and 512 bytes more: a format cannot ask for gigabytes.

namespace zntms {

std::string FormatText(std::string_view format, std::string_view text);

} // namespace zntms
