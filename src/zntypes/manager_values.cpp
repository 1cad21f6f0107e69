#include "zntypemgr.h"

#include "zntypes/table.h"
#include "zntypes/timestamp.h"

#include <memory>

/// Stepping a value in any form, and storing a clock reading as a value.
///
/// Rows step in memory form, the string row apart, which steps an index key. A stored value of any
/// other type therefore goes through a temporary: FF 00 00 00 of an `o_u4b` is loaded, stepped to
/// 256 and stored back. Of the format only the bits of index keys and of little-endian order are
/// kept, so that stored values are stepped as little-endian ones.

using namespace zntms;

int ZnTypeMgr::GetValue(char id, void * value, unsigned int length, unsigned char format,
                        unsigned char what) const {
  if (what != 'M' && what != 'N' && what != 'O')
    return ZnErrNotSupported;
  ZnTypeRow const & row = RowOf(rows, id);
  if (format == ZnFormatMemory || id == ZnSTRING_T)
    return row.GetValue(value, length, format, what);
  auto const free = [&row](void * temporary) { row.Delete(temporary, 1); };
  std::unique_ptr<void, decltype(free)> const temporary(row.Create(1), free);
  if (temporary == nullptr)
    return ZnErrNotSupported;
  unsigned char const stored = format & (ZnFormatIndexKey | ZnFormatLittleEndian);
  if (row.Load(temporary.get(), value, stored, 1) == 0)
    return ZnErrNotSupported;
  if (int const result = row.GetValue(temporary.get(), 0, ZnFormatMemory, what); result != 0)
    return result;
  return row.Store(value, temporary.get(), stored, 1) == 0 ? ZnErrNotSupported : 0;
}

int ZnTypeMgr::StoreTimeStamp(char id, void * dst, unsigned char format,
                              ZnTimeStampRecord const * src) const {
  if (src == nullptr)
    return ZnErrNotSupported;
  TimeStampRoom room;
  void const * const value = TimeStampValue(id, *src, room);
  return value == nullptr ? ZnErrNotSupported
                          : static_cast<int>(RowOf(rows, id).Store(dst, value, format, 1));
}
