#include "zantms.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

/// Stored bytes of any content through every reader of the date and time rows.
///
/// The first four bytes choose the type, the format, the flags and a cut; the rest are the stored
/// elements, in buffers of exactly their size.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  constexpr char kTypes[] = {ZnDATE_T, ZnTIME_T, ZnDATIME_T,    ZnDATIME_N_T, ZnTIMESPAN_T,
                             D_DATE_T, D_TIME_T, D_TIMESTAMP_T, D_INTERVAL_T};
  if (size < 4)
    return 0;
  static ZnTypeMgr mgr;
  char const id = kTypes[data[0] % sizeof kTypes];
  unsigned char const format = data[1] & 1 ? 2 : 1;
  unsigned short const flags = data[2];
  std::vector<unsigned char> stored(data + 4, data + size);
  auto const count = static_cast<unsigned int>(
      stored.size() / mgr.DiskLenGet(id, nullptr, format, 1, ZnFormatMemory));
  if (count == 0)
    return 0;
  stored.resize(mgr.DiskLenGet(id, nullptr, format, count, ZnFormatMemory));
  stored.shrink_to_fit();
  auto const length = static_cast<unsigned int>(stored.size());

  void * const values = mgr.Create(id, count);
  mgr.Load(id, values, stored.data(), format, count);
  std::vector<unsigned char> back(length);
  mgr.Store(id, back.data(), values, format, count);
  if (back != stored)
    __builtin_trap();

  int error = 0;
  unsigned int const cut = data[3] % length + 1;
  mgr.Cmp(id, cut, stored.data(), 0, back.data(), flags, count, format, error);
  mgr.Cmp(id, values, values, flags, count, ZnFormatMemory);
  mgr.Hash(id, cut, stored.data(), count, format, error);
  mgr.Hash(id, 0, values, count, ZnFormatMemory, error);
  ZnIdxBounds area{};
  area.lowKey = stored.data();
  area.highKey = back.data();
  for (unsigned short op : {1, 2, 4}) {
    ZnIdxBounds out{};
    unsigned short word = static_cast<unsigned short>(op | (flags & 0xF0));
    mgr.EvalAndBound(id, &area, word, back.data(), format, count, &out, nullptr);
    std::free(out.lowKey);
    std::free(out.highKey);
  }
  ZnString text;
  mgr.PrintToZnString(id, text, values, nullptr, count);
  if (ZnTypeConvertData * const box = mgr.ConvertTo(id, values, count)) {
    mgr.Delete(id, mgr.ConvertFrom(id, box, count), count);
    delete box;
  }
  mgr.GetValue(id, stored.data(), length, format, 'M');
  mgr.Delete(id, values, count);
  return 0;
}
