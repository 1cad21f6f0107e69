#pragma once

#include "znexport.h"

class MemFile;

/// Stored forms of strings and index keys, for callers that reach the row functions by name.
///
/// Worked example: "abc" of code set 1 and language 2 takes `StringSizeGet` 9 bytes and is stored
/// in format 1 as 07 00 01 02 61 62 63 00 FF; the null string is 04 00 00 FE 00 FF.
///
/// `format` is a format byte: 1 stored little-endian, 2 big-endian, with `ZnFormatIndexKey` and its
/// like in the high bits. In memory form the values are `count` objects of `ZnString` side by side.
/// Those named `ZnOld...` write the old generation, which has neither code set nor language; all
/// read both. Functions without a length trust the length fields of what they read.

/// Bytes written.
ZANTMS_EXPORT unsigned int StringStore(void * dst, void const * src, unsigned char format,
                                       unsigned int count);
/// Bytes read; 0 and no change for a length field of 0.
ZANTMS_EXPORT unsigned int StringLoad(void * dst, void const * src, unsigned char format,
                                      unsigned int count);
/// Bytes that the values take in `format`. `valueFormat` tells in which form `value` is. An index
/// key is measured by a bound: two order numbers for each character.
ZANTMS_EXPORT unsigned int StringSizeGet(void const * value, unsigned char valueFormat,
                                         unsigned char format, unsigned int count);
/// The same for stored values at the current place of a file.
ZANTMS_EXPORT unsigned int ZnStringSizeFromFile(MemFile * file, unsigned char format,
                                                unsigned int count);
/// Brings values from one form to another; bytes. A key longer than its area is cut: if the area
/// has 256 bytes or less there is no end mark, and the length field counts two bytes that are not
/// there; else the last order number gives way to the end mark. Between stored forms the two
/// formats must agree, unless a key is built.
ZANTMS_EXPORT unsigned int ZnStringTranslate(void * dst, unsigned char dstFormat,
                                             unsigned int dstLength, void * src,
                                             unsigned char srcFormat, unsigned int srcLength,
                                             unsigned int count);

ZANTMS_EXPORT unsigned int ZnOldStringStore(void * dst, void const * src, unsigned char format,
                                            unsigned int count);
ZANTMS_EXPORT unsigned int ZnOldStringSizeGet(void const * value, unsigned char valueFormat,
                                              unsigned char format, unsigned int count);
ZANTMS_EXPORT unsigned int ZnOldStringSizeFromFile(MemFile * file, unsigned char format,
                                                   unsigned int count);
ZANTMS_EXPORT unsigned int ZnOldStringTranslate(void * dst, unsigned char dstFormat,
                                                unsigned int dstLength, void * src,
                                                unsigned char srcFormat, unsigned int srcLength,
                                                unsigned int count);
