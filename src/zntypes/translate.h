#pragma once

#include "zntypes/row_parts.h"

#include "zncodes.h"

#include <algorithm>
#include <cstring>

/// `Translate`, the four ways between memory and stored form, told once for every row.
///
/// From memory to stored form it is `Store`, back it is `Load`, from memory to memory an
/// assignment of each element. Between two stored forms the bytes are copied as they are, into
/// what room there is, without a look at the two formats: byte order does not change there.
///
/// A row of fixed size takes `&Translate<&ZnDateStore, &ZnDateLoad, &AssignValues<ZnDate>, 4>`.

namespace zntms {

constexpr bool IsMemoryForm(unsigned char format) { return (format & ZnFormatMemory) != 0; }

/// Copies the smaller of the two lengths, which is the result; a target that is longer than the
/// source is cleared first.
inline unsigned int TranslateStored(void * dst, unsigned int dstLength, void const * src,
                                    unsigned int srcLength) {
  unsigned int const length = std::min(dstLength, srcLength);
  if (length < dstLength)
    std::memset(dst, 0, dstLength);
  if (length != 0)
    std::memmove(dst, src, length);
  return length;
}

/// `assign` is the row's `Assignment`, `memLen` the bytes of a value in memory.
template <ZnTypeRow::MoveFunc store, ZnTypeRow::MoveFunc load, ZnTypeRow::AssignFunc assign,
          unsigned int memLen>
unsigned int Translate(void * dst, unsigned char dstFormat, unsigned int dstLength, void * src,
                       unsigned char srcFormat, unsigned int srcLength, unsigned int count) {
  if (IsMemoryForm(dstFormat)) {
    if (!IsMemoryForm(srcFormat))
      return load(dst, src, srcFormat, count);
    assign(dst, src, count, 0);
    return count * memLen;
  }
  if (IsMemoryForm(srcFormat))
    return store(dst, src, dstFormat & 15, count);
  return TranslateStored(dst, dstLength, src, srcLength);
}

} // namespace zntms
