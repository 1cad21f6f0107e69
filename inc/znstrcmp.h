#pragma once

#include "znexport.h"

/// Comparison of text: one order for all code sets and languages, and the wildcard matcher.
///
/// Worked example: `ZnStrCmp(1, 1, "resume", 1, 1, "r\xE9sum\xE9", ZnCmpNoWildcards, -1, 1, 0)`
/// is negative: the letters agree, and no accent orders before an accent. With
/// `ZnCmpIgnoreAccents` too it is 0. Without `ZnCmpNoWildcards` the second text is a pattern:
/// "abcd" against "a*d" gives 0.

/// The comparison key of an order number: script class; for a letter its base letter, case and
/// diacritic from high to low, else the number itself. 0 for order 0.
constexpr unsigned int ZnOrderKey(unsigned short order, unsigned char scriptClass) {
  if (order == 0)
    return 0;
  unsigned int const top = static_cast<unsigned int>(scriptClass) << 24;
  if (scriptClass != 20 && (order & 0xC000) == 0x4000)
    return top | (order & 0x407Fu) << 8 | (order >> 7 & 0x7Fu);
  return top | static_cast<unsigned int>(order) << 8;
}

/// Compares two texts, each ending with a zero character of its code set's width or at a null
/// pointer. The result is negative, 0 or positive; only the sign counts.
///
/// `cmpOp` is a word of `ZnCmp...` flags, taken as it is. `maxLength` is the number of order
/// numbers to read of each side, 0 giving result 0 and -1 no limit. `byteOrder` is that of
/// two-byte text on both sides: 2 big-endian, else little-endian.
///
/// The order has four levels: letters and digits over the whole text, a shorter text first; then
/// the last difference in diacritics; then the first difference in case, lower case first; then
/// the last difference in spaces and symbols. A null text (language 254, or code set 254 with
/// language 0) orders before every other.
///
/// If `lastDifference` is not null and `cmpOp` has `ZnCmpIgnoreSpaces`, it takes the difference
/// on the first level as far as both sides were within `maxLength` (a signed number here); it is
/// left alone if they never were.
ZANTMS_EXPORT int ZnStrCmp(unsigned char codeSetA, unsigned char languageA, char const * textA,
                           unsigned char codeSetB, unsigned char languageB, char const * textB,
                           unsigned short cmpOp, short maxLength, unsigned char byteOrder,
                           int * lastDifference);

/// The place of the first wildcard in a text, in characters, or 65535 if there is none in the
/// first `limit` characters. With `asteriskOnly` a question mark does not count. If `byteOffset`
/// is not null it takes the place in bytes.
ZANTMS_EXPORT unsigned short ZnFindWildcard(unsigned char codeSet, unsigned char language,
                                            char const * text, int asteriskOnly,
                                            unsigned short limit, unsigned short * byteOffset,
                                            unsigned char byteOrder);

/// Hash of a text in any byte order that agrees with the comparison order: over the comparison
/// keys of `length` order numbers, a negative number for all; over the bytes in code set 0. Texts
/// that are equal under `ZnCmpKeysOnly` in one language have one hash. Null texts give 0xFEFE7575.
ZANTMS_EXPORT unsigned int HashString(unsigned char codeSet, unsigned char language, char * text,
                                      short length, unsigned char byteOrder);

/// Compare row of `ZnString`, in the shape of `ZnTypeCmpFunc`. In stored form (`format` not 8) a
/// length of 0 trusts the length fields; else nothing behind the length is read. Errors: 2101 if a
/// key was cut or lacks elements, 2114 or 2115 if a key mixes script classes, and
/// `ZnErrNotSupported`, with the result -1, if a cut key still holds 254 bytes of text or more.
ZANTMS_EXPORT int StringCompare(unsigned char format, unsigned int lengthA, void * valueA,
                                unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                                unsigned int count, int & error);
