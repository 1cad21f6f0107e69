#pragma once

#include "znexport.h"

/// The compare rows of plain numbers and truth values, in the shape of `ZnTypeCmpFunc`.
///
/// Each compares `count` elements and gives -1, 0 or 1. The low nibble of `format` tells the form
/// of both values: 8 memory, 1 and 2 stored. `lengthA` and `lengthB` are the bytes at hand, 0 for
/// as many as `count` elements take. `error` takes 0, or 2101 if a side ended before all elements
/// that were asked for. `cmpOp` is not read. Neither value needs any alignment.
///
/// Floats: every NaN is equal to every other and below negative infinity; zeros are equal.

#define ZANTMS_COMPARE_ROW(name)                                                                   \
  ZANTMS_EXPORT int name(unsigned char format, unsigned int lengthA, void * valueA,                \
                         unsigned int lengthB, void * valueB, unsigned short int cmpOp,            \
                         unsigned int count, int & error)

ZANTMS_COMPARE_ROW(CharCompare);     ///< `o_char`, signed
ZANTMS_COMPARE_ROW(ByteCompare);     ///< `o_u1b`
ZANTMS_COMPARE_ROW(ShortCompare);    ///< `o_2b`
ZANTMS_COMPARE_ROW(WordCompare);     ///< `o_u2b`
ZANTMS_COMPARE_ROW(LongCompare);     ///< `o_4b`
ZANTMS_COMPARE_ROW(DwordCompare);    ///< `o_u4b` and `BlockId`
ZANTMS_COMPARE_ROW(IntCompare);      ///< `int` and `enum`
ZANTMS_COMPARE_ROW(UnsignedCompare); ///< `unsigned`
ZANTMS_COMPARE_ROW(O_8BCompare);     ///< `o_8b`
ZANTMS_COMPARE_ROW(O_U8BCompare);    ///< `o_u8b`
ZANTMS_COMPARE_ROW(FloatCompare);    ///< `o_float` and `d_Interval`
ZANTMS_COMPARE_ROW(DoubleCompare);   ///< `o_double`
ZANTMS_COMPARE_ROW(BooleanCompare);  ///< `ZnBoolean`; null before false before true

#undef ZANTMS_COMPARE_ROW
