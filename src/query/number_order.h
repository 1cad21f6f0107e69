#pragma once

#include <cmath>
#include <type_traits>

/// The order of two plain numbers: -1, 0 or 1.
///
/// Floats are ordered in whole: NaN, whatever its payload, then negative infinity, the finite
/// numbers with equal zeros, positive infinity.

namespace zntms {

template <class Number>
int OrderNumbers(Number a, Number b) {
  if constexpr (std::is_floating_point_v<Number>) {
    if (std::isunordered(a, b))
      return int(std::isnan(b)) - int(std::isnan(a));
  }
  return (a > b) - (a < b);
}

} // namespace zntms
