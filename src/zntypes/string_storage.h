#pragma once

#include "zntypes/row_parts.h"

/// Row functions of strings that write, read, measure and translate stored forms and index keys.
/// Those named `ZnOld...` write the old generation; both read both.

namespace zntms {

unsigned int StringStore(void * dst, void const * src, unsigned char format, unsigned int count);
unsigned int StringLoad(void * dst, void const * src, unsigned char format, unsigned int count);
unsigned int StringNullSizeGet(unsigned int count);
/// An index key is measured by a bound: two order numbers for each character.
unsigned int StringSizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                           unsigned int count);
unsigned int ZnStringSizeFromFile(MemFile * file, unsigned char format, unsigned int count);
/// A key longer than its area is cut: if the area has 256 bytes or less there is no end mark, and
/// the length field counts two bytes that are not there; else the last order number gives way to
/// the end mark. Between stored forms the two formats must agree, unless a key is built.
unsigned int ZnStringTranslate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                               void * src, unsigned char srcFormat, unsigned int srcLength,
                               unsigned int count);

unsigned int ZnOldStringStore(void * dst, void const * src, unsigned char format,
                              unsigned int count);
unsigned int ZnOldStringSizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                                unsigned int count);
unsigned int ZnOldStringSizeFromFile(MemFile * file, unsigned char format, unsigned int count);
unsigned int ZnOldStringTranslate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                                  void * src, unsigned char srcFormat, unsigned int srcLength,
                                  unsigned int count);

inline constexpr RowStorage kNewStringStorage = {&StringStore,          &StringLoad,
                                                 &StringNullSizeGet,    &StringSizeGet,
                                                 &ZnStringSizeFromFile, &ZnStringTranslate};
inline constexpr RowStorage kOneLengthStorage = {&ZnOldStringStore,        &StringLoad,
                                                 &StringNullSizeGet,       &ZnOldStringSizeGet,
                                                 &ZnOldStringSizeFromFile, &ZnOldStringTranslate};

} // namespace zntms
