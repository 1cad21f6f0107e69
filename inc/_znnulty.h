#pragma once

#include "znexport.h"

/// Numbers that may be null: a plain pair of number and flag, and the order of two flags.
///
/// Worked example: `ZnNull_int n;` is null; `n.value = 7, n.isNull = 0` makes it 7. As a stored
/// value null takes the flag byte 1 and a 0 in the number's width, in memory
/// `sizeof(ZnNull_int)` is 8.

template <class Number>
struct ZnNullable {
  Number value = Number(); ///< 0 while null
  signed char isNull = 1;  ///< 0: not null; non-zero: null, which the library writes as 1

  /// The flag as it stands.
  int IsNullValue() const { return isNull; }
  /// Makes the value null and gives 0.
  int SetNullValue() {
    value = Number();
    isNull = 1;
    return 0;
  }
};

using ZnNull_char = ZnNullable<signed char>;
using ZnNull_uchar = ZnNullable<unsigned char>;
using ZnNull_short = ZnNullable<short>;
using ZnNull_ushort = ZnNullable<unsigned short>;
using ZnNull_int = ZnNullable<int>;
using ZnNull_unsigned = ZnNullable<unsigned int>;
/// `long` and `ulong` of the type names take 32 bits on every platform.
using ZnNull_long = ZnNullable<int>;
using ZnNull_ulong = ZnNullable<unsigned int>;
using ZnNull_float = ZnNullable<float>;
using ZnNull_double = ZnNullable<double>;
using ZnNull_8b = ZnNullable<long long>;
using ZnNull_u8b = ZnNullable<unsigned long long>;

/// How two null flags order: a null comes before every value, two nulls are equal.
enum ZnNullOrder : int {
  ZnNullOrderBoth = 0,
  ZnNullOrderFirst = 1,  ///< only the first is null: it comes first
  ZnNullOrderSecond = 2, ///< only the second is null: it comes first
  ZnNullOrderUnknown = 3 ///< neither is null: the values decide
};

constexpr ZnNullOrder ZnNullOrderGet(bool firstIsNull, bool secondIsNull) {
  return firstIsNull    ? secondIsNull ? ZnNullOrderBoth : ZnNullOrderFirst
         : secondIsNull ? ZnNullOrderSecond
                        : ZnNullOrderUnknown;
}

/// The compare result of a known order: 0, -1 or 1. An unknown order is reported by
/// `ZANT_assert`; it gives -2, and so does every number beyond.
ZANTMS_EXPORT int ZnNullOrderToInt(ZnNullOrder order);
