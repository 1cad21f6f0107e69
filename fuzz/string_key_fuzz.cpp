#include "zantms.h"

#include <cstdint>
#include <cstring>
#include <memory>

/// The compare and hash rows of strings over stored bytes of any content, cut anywhere. Each side
/// lies in a block of its own size, so that a read outside is seen.

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
  }
  return 0;
}
