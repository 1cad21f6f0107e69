#pragma once

#include "znexport.h"
#include "znquery.h"

class ZnStringIterator;

/// Index ranges of text: the end keys of a comparison, its share of an index, and the next key.
///
/// Worked example: the pattern "ab*" and the operator `ZnOpEqual` give the low key "ab" and the
/// high key "ab" with the largest unit behind it, both as index keys, and set `ZnOpWildcard`. In
/// an index from "aa" to "az" the share is that of the keys with an `a` and a `b`, about a
/// twentieth.

/// Bound row of `ZnString`. `value` is one stored string; `format` tells its byte order and that
/// of the keys, which `area` and `out` hold in key form, each no longer than its length. `op` has
/// an operator and flags of a comparison; what stays of it is the operator, `ZnOpWildcard` and
/// 0x8000. `count` is not read.
///
/// Keys that `out` lacks are made as far as the operator asks, of 254 bytes at the most; they come
/// from `malloc` and belong to the holder of `out`. A constant that begins with a wildcard gets
/// none. The result is the share of `area`, 0 if `out` is null: an estimate by the first three
/// letters behind what constant and area have in common, which may come out above 1.
///
/// A constant that goes on in another script class behind its key counts as a pattern that begins
/// with the key.
ZANTMS_EXPORT float ZnStringEvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                                         unsigned char format, unsigned int count,
                                         ZnIdxBounds * out);

/// The place of a text on the scale of the estimates, from where `text` stands, by at most
/// `maxChars` order numbers, or bytes in code set 0; 65535 is no limit. `text` does not move.
ZANTMS_EXPORT double ZnStringKeyPosition(ZnStringIterator const & text, unsigned short maxChars);

/// Steps a stored key of `length` bytes to its next value, in place. `format` is that of a
/// little-endian index key, 0x81, and `what` one of the characters `M` and `N`; anything else gives
/// `ZnErrNotSupported`, as does a key shorter than its head. With `M` a wildcard becomes the
/// largest unit. Otherwise the smallest letter is appended, which may push the end mark out of
/// `length`; a key without room for it takes a larger last character, and `ZnErrNoNextValue` is
/// the result if it has none, or if that is the byte 255. Else 0.
ZANTMS_EXPORT int ZnStringGetValue(void * key, unsigned int length, unsigned char format,
                                   unsigned char what);
