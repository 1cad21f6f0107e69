#pragma once

#include "znexport.h"

class ZnTypeConvertData;

/// Boxes of plain numbers that callers reach by name; the other rows have theirs in the type table.
///
/// The first of each pair makes a box of `count` strings of the numbers at `value`, in decimal,
/// characters too. The caller owns the box and, while it has no manager, its strings. The second
/// makes `count` new numbers of the strings of a box, 0 where there is none; the caller owns them,
/// the box stays the caller's.

ZANTMS_EXPORT ZnTypeConvertData * CharConvertToZnString(void * value, unsigned int count);
ZANTMS_EXPORT void * CharConvertFromZnString(ZnTypeConvertData * data, unsigned int count);
ZANTMS_EXPORT ZnTypeConvertData * O_U1BConvertToZnString(void * value, unsigned int count);
ZANTMS_EXPORT void * O_U1BConvertFromZnString(ZnTypeConvertData * data, unsigned int count);
ZANTMS_EXPORT ZnTypeConvertData * ShortConvertToZnString(void * value, unsigned int count);
ZANTMS_EXPORT void * ShortConvertFromZnString(ZnTypeConvertData * data, unsigned int count);
ZANTMS_EXPORT ZnTypeConvertData * WordConvertToZnString(void * value, unsigned int count);
ZANTMS_EXPORT void * WordConvertFromZnString(ZnTypeConvertData * data, unsigned int count);
