#pragma once

#include "_znnulty.h"

#include "query/elements.h"
#include "query/number_order.h"
#include "query/number_query.h"
#include "zntypes/number_rows.h"

/// One element of a nullable kind in its forms, and what the kind takes from its base kind.
///
/// Stored, a flag byte stands in front of the number: the `ZnNull_short` 7 is 00 07 00 in
/// little-endian order, a null 01 00 00. In a form with the bit of memory form the flag stands
/// behind the number, as it does in memory. A flag of exactly 1 means null; what else stands there
/// reads as not null.

namespace zntms {

/// A base kind: how a number is read and written, ordered, hashed and stepped.
template <class Number>
struct NullableKind {
  static Number Read(Bytes at, unsigned char format) { return ReadNumber<Number>(at, format); }
  static void Write(unsigned char * at, Number number, unsigned char format) {
    auto word = std::bit_cast<UnsignedOfSize<sizeof(Number)>>(number);
    if (IsSwapped(format))
      word = SwapBytes(word);
    std::memcpy(at, &word, sizeof word);
  }
  static int Compare(Number a, Number b) { return OrderNumbers(a, b); }
  static constexpr ZnTypeRow::HashFunc hash = &HashNumbers<Number>;
  static int Step(Number & number, unsigned char what) {
    if constexpr (std::is_floating_point_v<Number>)
      return StepFloat<Number>(&number, 0, ZnFormatMemory, what);
    else
      return StepInteger<Number>(&number, 0, ZnFormatMemory, what);
  }
  /// What a null steps to.
  static void SetLowest(Number & number) { Step(number, kSetLowest); }
};

/// Bytes of an element in every form but memory.
template <class Number>
inline constexpr unsigned int kNullableSize = sizeof(Number) + 1;

template <class Number>
ZnNullable<Number> LoadNullable(Bytes at, unsigned char format) {
  bool const flagLast = (format & ZnFormatMemory) != 0;
  ZnNullable<Number> element;
  if (at[flagLast ? sizeof(Number) : 0] == 1)
    return element;
  element.value = NullableKind<Number>::Read(at + (flagLast ? 0 : 1), format);
  element.isNull = 0;
  return element;
}

template <class Number>
void StoreNullable(unsigned char * at, ZnNullable<Number> const & element, unsigned char format) {
  bool const flagLast = (format & ZnFormatMemory) != 0;
  at[flagLast ? sizeof(Number) : 0] = element.isNull != 0;
  NullableKind<Number>::Write(at + (flagLast ? 0 : 1), element.value, format);
}

} // namespace zntms
