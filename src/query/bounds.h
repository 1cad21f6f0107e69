#pragma once

#include "_znnulty.h"
#include "znquery.h"

#include <algorithm>

/// What bound rows share: recording the ends of an index scan, and estimating which part of a key
/// range a comparison selects.
///
/// Worked example: an index of whole numbers from `lo` 0 to `hi` 99 and the comparison "above 50".
/// `ZnEvalRange(ZnOpAbove, 50, 50, 0, 99, 1)` gives 49, the number of whole values selected; the
/// row divides it by 99 - 0 + 1 and gives 0.49. `ZnBoundsSave` records 50 as the low end.

namespace zntms {

/// Records the `size` bytes of the constant as low key, unless the comparison selects what is
/// below it, and as high key, unless it selects what is above. A key that is there stays; a null
/// `out` does nothing. The keys come from `malloc` and belong to the holder of `out`.
void ZnBoundsSave(ZnIdxBounds * out, void const * value, unsigned short op, unsigned int size);

/// The size of the part of [`lo`, `hi`] that a comparison with the range from `valueLow` to
/// `valueHigh` selects; `unit` is the distance of neighbouring values.
double ZnEvalRange(unsigned short op, double valueLow, double valueHigh, double lo, double hi,
                   double unit);

/// Positions of numbers in their range, for the arithmetic of estimates.
template <class Number>
constexpr double PositionOf(Number number) {
  return static_cast<double>(number);
}
/// The upper half goes through the signed number: what it loses, it loses there.
template <>
constexpr double PositionOf(unsigned long long number) {
  double const position = static_cast<double>(static_cast<long long>(number));
  return number >> 63 != 0 ? position + 18446744073709551616.0 : position;
}

/// The same for a kind with null. A null `lo` means that the index holds nulls, which count for a
/// fixed share, a null `hi` that it holds nothing else.
template <class Number>
double ZnEvalNullRange(unsigned short op, ZnNullable<Number> const & value,
                       ZnNullable<Number> const & lo, ZnNullable<Number> const & hi, double unit) {
  double range = 0;
  auto const add = [&range](double part) {
    if (part > 0)
      range += part;
  };
  bool const hasValues = hi.isNull == 0;
  bool const hasNulls = lo.isNull != 0;
  double const v = PositionOf(value.value);
  double const low = PositionOf(lo.value);
  double const high = PositionOf(hi.value);
  if ((op & ZnOpAbove) != 0 && hasValues)
    add(value.isNull != 0 || hasNulls ? 0.5 : high - (lo.value > value.value ? low - unit : v));
  if ((op & ZnOpBelow) != 0 && hasValues && value.isNull == 0)
    add(hasNulls ? 0.5 : (value.value > hi.value ? high + unit : v) - low);
  if ((op & ZnOpEqual) != 0) {
    if (value.isNull != 0)
      add(hasNulls ? 0.001 : 0.0);
    else if (hasValues)
      add(hasNulls
              ? 0.1
              : (hi.value < value.value ? high : v) + unit - (lo.value > value.value ? low : v));
  }
  return range;
}

/// The smallest share that a real selection of floats is estimated at: 2 to the power -23.
inline constexpr float kSmallestShare = 1.1920928955078125e-07F;

/// 0 for an empty selection, else the share of `total` that `range` takes, from `kSmallestShare` to
/// 1; the former too for a share that is no number.
inline float ShareWithFloor(double range, double total) {
  if (range == 0)
    return 0;
  double const share = range / total;
  return share > double(kSmallestShare) ? static_cast<float>(std::min(share, 1.0)) : kSmallestShare;
}

/// The 64-bit kinds lose their low bits in an estimate, so that a constant inside a narrow range
/// may select 0 values there. By the exact numbers it selects one.
template <class Number>
double FixZeroRange(double range, unsigned short op, Number const & value, Number const & lo,
                    Number const & hi) {
  bool const inside =
      ((op & ZnOpAbove) != 0 || !(lo > value)) && ((op & ZnOpBelow) != 0 || !(value > hi));
  return range == 0 && inside ? 1.0 : range;
}

/// The smallest and the largest key of an index as numbers; those that are missing are 0.
template <class Key>
struct KeyRange {
  Key lo{};
  Key hi{};
};

/// Reads the keys of `area`, which may be null; `read` gives the number at an address.
template <class Key, class Read>
KeyRange<Key> ReadRange(ZnIdxBounds const * area, Read read) {
  KeyRange<Key> range;
  if (area != nullptr && area->lowKey != nullptr)
    range.lo = read(area->lowKey);
  if (area != nullptr && area->highKey != nullptr)
    range.hi = read(area->highKey);
  return range;
}

} // namespace zntms
