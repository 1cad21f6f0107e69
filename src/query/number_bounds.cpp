#include "query/bounds.h"
#include "query/elements.h"
#include "query/number_query.h"

#include <cmath>
#include <limits>

/// The bound rows of plain numbers: the first element of the constant is estimated against the
/// smallest and the largest key of the index, the whole constant is recorded.

namespace zntms {

namespace {

template <class Number>
float Share(double range, double lo, double hi) {
  if constexpr (std::is_same_v<Number, double>) {
    constexpr double largest = std::numeric_limits<double>::max();
    double const area = hi - lo;
    return ShareWithFloor(std::isfinite(range) ? range : largest,
                          (std::isfinite(area) ? area : largest) + 1.0);
  } else if constexpr (std::is_same_v<Number, float>) {
    return ShareWithFloor(range, hi - lo + 1.0);
  } else {
    return static_cast<float>(range / (hi - lo + 1.0));
  }
}

} // namespace

template <class Number>
float BoundNumbers(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                   unsigned int count, ZnIdxBounds * out) {
  auto const read = [format](void const * at) { return ReadNumber<Number>(at, format); };
  auto const [lo, hi] = ReadRange<Number>(area, read);
  double range = 0;
  if (area != nullptr) {
    Number const constant = read(value);
    double const position = PositionOf(constant);
    range = ZnEvalRange(op, position, position, PositionOf(lo), PositionOf(hi), 1.0);
    if constexpr (std::is_integral_v<Number> && sizeof(Number) == 8)
      range = FixZeroRange(range, op, constant, lo, hi);
  }
  ZnBoundsSave(out, value, op, static_cast<unsigned int>(count * sizeof(Number)));
  return Share<Number>(range, PositionOf(lo), PositionOf(hi));
}

float BoundBooleans(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char,
                    unsigned int count, ZnIdxBounds * out) {
  ZnBoundsSave(out, value, op, count);
  return area != nullptr ? static_cast<float>(1.0 / 3.0) : 0.0F;
}

template float BoundNumbers<signed char>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                         unsigned int, ZnIdxBounds *);
template float BoundNumbers<unsigned char>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                           unsigned int, ZnIdxBounds *);
template float BoundNumbers<short>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                   unsigned int, ZnIdxBounds *);
template float BoundNumbers<unsigned short>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                            unsigned int, ZnIdxBounds *);
template float BoundNumbers<int>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                 unsigned int, ZnIdxBounds *);
template float BoundNumbers<unsigned int>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                          unsigned int, ZnIdxBounds *);
template float BoundNumbers<long long>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                       unsigned int, ZnIdxBounds *);
template float BoundNumbers<unsigned long long>(ZnIdxBounds *, unsigned short &, void *,
                                                unsigned char, unsigned int, ZnIdxBounds *);
template float BoundNumbers<float>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                   unsigned int, ZnIdxBounds *);
template float BoundNumbers<double>(ZnIdxBounds *, unsigned short &, void *, unsigned char,
                                    unsigned int, ZnIdxBounds *);

} // namespace zntms
