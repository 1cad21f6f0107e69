#pragma once

#include <string_view>

namespace zntms {

/// The offset of the first occurrence of `pattern` in `text`, 0 for an empty pattern, or
/// `std::string_view::npos`. Takes time in the order of the sum of both lengths, whatever the
/// bytes, and allocates nothing.
std::size_t FindBytes(std::string_view text, std::string_view pattern);

} // namespace zntms
