#pragma once

#include "znexport.h"

/// The compare rows of dates and times, in the shape of `ZnTypeCmpFunc`.
///
/// Memory form compares by the classes; stored elements compare by their bytes, where a wildcard
/// field counts only in the second value (-1, 0 or 1). `cmpOp` with `ZnCmpNoWildcards` makes both
/// exact. `count`, the lengths and `error` are as in `zncompare.h`. The rows of the standard
/// classes take memory form for a format byte of exactly 8, the others for a low nibble of 8.

#define ZANTMS_COMPARE_ROW(name)                                                                   \
  ZANTMS_EXPORT int name(unsigned char format, unsigned int lengthA, void * valueA,                \
                         unsigned int lengthB, void * valueB, unsigned short int cmpOp,            \
                         unsigned int count, int & error)

ZANTMS_COMPARE_ROW(ZnDateCompare);
ZANTMS_COMPARE_ROW(ZnTimeCompare);
ZANTMS_COMPARE_ROW(ZnDateTimeCompare);
ZANTMS_COMPARE_ROW(ZnDateTimeNCompare);
ZANTMS_COMPARE_ROW(ZnTimeSpanCompare);
ZANTMS_COMPARE_ROW(d_DateCompare); ///< stored years compare without sign
ZANTMS_COMPARE_ROW(d_TimeCompare); ///< stored: the six bytes in their order, the zone first
ZANTMS_COMPARE_ROW(d_TimestampCompare);

#undef ZANTMS_COMPARE_ROW
