#pragma once

#include "zncompare.h"
#include "zntypes/row_parts.h"

/// Hash and bound rows of plain numbers and truth values, and the groups of what queries ask.

namespace zntms {

template <class Number>
unsigned int HashNumbers(unsigned char format, unsigned int length, void * value,
                         unsigned int count, int & error);
unsigned int HashBooleans(unsigned char format, unsigned int length, void * value,
                          unsigned int count, int & error);

template <class Number>
float BoundNumbers(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                   unsigned int count, ZnIdxBounds * out);
float BoundBooleans(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                    unsigned int count, ZnIdxBounds * out);

template <class Number, ZnTypeCmpFunc compare>
inline constexpr RowQuery kNumberQuery = {compare, &BoundNumbers<Number>, &HashNumbers<Number>};

} // namespace zntms
