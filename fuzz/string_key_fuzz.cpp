#include "zanbs.h"
#include "zantms.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

/// The compare, hash and bound rows of strings and the step of keys, over stored bytes of any
/// content, cut anywhere. Each side lies in a block of its own size, so that a read outside is
/// seen.

namespace {

/// Bounds of the constant `bytes`, of which only the length field is made to be true, in an index
/// between two keys, of which one is in `out` too.
void Bound(ZnTypeMgr const & manager, char const * bytes, unsigned int size, unsigned char format,
           unsigned short op, ZnIdxBounds area) {
  if (size < 2 || size > 65537)
    return;
  std::unique_ptr<char[]> const constant(new char[size]);
  std::memcpy(constant.get(), bytes, size);
  auto const length = static_cast<unsigned short>(size - 2);
  ShortStoreOne(constant.get(), &length, (format & 15) == 2 ? 2 : 1);
  ZnIdxBounds out = area;
  out.highKey = nullptr;
  manager.EvalAndBound(ZnSTRING_T, &area, op, constant.get(), format, 1, &out, nullptr);
  std::free(out.highKey);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  if (size < 7)
    return 0;
  unsigned char const format = data[0];
  unsigned short const flags = static_cast<unsigned short>(data[1] << 4);
  unsigned int const count = data[2] % 4;
  if (format == ZnFormatMemory)
    return 0;
  std::size_t const rest = size - 5, split = 1 + (rest - 2) * data[3] / 255;
  std::unique_ptr<char[]> const a(new char[split]), b(new char[rest - split]);
  std::memcpy(a.get(), data + 5, split);
  std::memcpy(b.get(), data + 5 + split, rest - split);
  unsigned int const lengthA = static_cast<unsigned int>(split);
  unsigned int const lengthB = static_cast<unsigned int>(rest - split);
  for (unsigned int version : {5u, 3u}) {
    ZnTypeMgr const manager(version);
    int error = 0;
    manager.Cmp(ZnSTRING_T, lengthA, a.get(), lengthB, b.get(), flags, count, format, error);
    manager.Hash(ZnSTRING_T, lengthA, a.get(), count, format, error);
    ZnIdxBounds area{};
    area.lowKey = a.get();
    area.highKey = b.get();
    area.lowLength = static_cast<unsigned char>(lengthA < 256 ? lengthA : 255);
    area.highLength = static_cast<unsigned char>(lengthB < 256 ? lengthB : 255);
    area.keyLimit = data[3];
    Bound(manager, b.get(), lengthB, format, flags | (data[2] / 4 % 7 + 1), area);
    manager.GetValue(ZnSTRING_T, b.get(), lengthB, format, 'M');
  }
  return 0;
}
