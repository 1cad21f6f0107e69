#pragma once

#include "query/bounds.h"
#include "query/compare_frame.h"
#include "query/hash_frame.h"
#include "query/null_form.h"

/// Compare, hash and bound rows of the nullable kinds, one template for all: nulls are settled by
/// the flags, everything else by the base kind.

namespace zntms {

/// Bytes from one element to the next.
template <class Number>
unsigned int NullableStride(unsigned char format) {
  return HasMemoryNibble(format) ? sizeof(ZnNullable<Number>) : kNullableSize<Number>;
}

template <class Number>
int CompareNullables(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int, unsigned int count,
                     int & error) {
  return CompareFrame(NullableStride<Number>(format), lengthA, valueA, lengthB, valueB, count,
                      error, [format](Bytes at, Bytes bt) {
                        auto const a = LoadNullable<Number>(at, format);
                        auto const b = LoadNullable<Number>(bt, format);
                        auto const order = ZnNullOrderGet(a.isNull != 0, b.isNull != 0);
                        return order == ZnNullOrderUnknown
                                   ? NullableKind<Number>::Compare(a.value, b.value)
                                   : ZnNullOrderToInt(order);
                      });
}

/// The base kind's row has multiplied already, so that the total stays as it is.
template <class Number>
unsigned int HashNullables(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error) {
  return HashWords(NullableStride<Number>(format), length, value, count, error,
                   [format](Bytes at) -> unsigned int {
                     auto element = LoadNullable<Number>(at, format);
                     if (element.isNull != 0)
                       return kNullHash;
                     int ignored;
                     return NullableKind<Number>::hash(ZnFormatMemory, sizeof(Number),
                                                       &element.value, 1, ignored);
                   });
}

/// Keys between the ends, counted in the numbers of the kind: exactly, where these are integers in
/// their order.
template <class Number>
double SpanOf(Number lo, Number hi) {
  if constexpr (std::is_integral_v<Number> && sizeof(Number) == 8)
    if (hi >= lo)
      return static_cast<double>(static_cast<unsigned long long>(hi) -
                                 static_cast<unsigned long long>(lo));
  return PositionOf(hi) - PositionOf(lo);
}

template <class Number>
float BoundNullables(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                     unsigned int count, ZnIdxBounds * out) {
  auto const read = [format](void const * at) {
    return LoadNullable<Number>(static_cast<Bytes>(at), format);
  };
  auto const [lo, hi] = ReadRange<ZnNullable<Number>>(area, read);
  double range = 0;
  double total = 1.0;
  if (area != nullptr) {
    range = ZnEvalNullRange(op, read(value), lo, hi, 1.0);
    total = SpanOf(lo.value, hi.value) + 1.0;
  }
  ZnBoundsSave(out, value, op, count * kNullableSize<Number>);
  if constexpr (std::is_same_v<Number, double>)
    return ShareWithFloor(range, total);
  else
    return static_cast<float>(range / total);
}

template <class Number>
inline constexpr RowQuery kNullQuery = {&CompareNullables<Number>, &BoundNullables<Number>,
                                        &HashNullables<Number>};

} // namespace zntms
