#pragma once

#include "znquery.h"

/// Compare, bound and hash rows of `ZnString`; those of old data take incomplete elements for the
/// one-length form. `StringCompare` and `ZnStringEvalAndBound` themselves are public.

namespace zntms {

int OldStringCompare(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                     unsigned int count, int & error);
float OldStringEvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                            unsigned char format, unsigned int count, ZnIdxBounds * out);
unsigned int StringHash(unsigned char format, unsigned int length, void * value, unsigned int count,
                        int & error);
unsigned int OldStringHash(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error);

} // namespace zntms
