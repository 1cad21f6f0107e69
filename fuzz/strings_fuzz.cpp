#include <zantms.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "zanbs.h"

/// The rows of the three string kinds over bytes of any content: print and scan with any format,
/// load, translate, measure and compare. The first bytes choose kind and formats.

namespace {

void Ignore(char const *, char const *, int) {}

/// A part of the input with nothing behind it.
std::vector<char> Take(std::uint8_t const *& data, std::size_t & size, std::size_t wanted) {
  std::size_t const taken = wanted < size ? wanted : size;
  std::vector<char> part(data, data + taken);
  data += taken;
  size -= taken;
  return part;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  constexpr char kinds[] = {ZnSTRING_T, ZnISTRING_T, ZnCASEISTRING_T};
  constexpr unsigned char formats[] = {1, 2, 0x81, 0x82, 0xA1, 0xC2, 0x21, 0x41};
  if (size < 6)
    return 0;
  ZantSetAssertHandler(&Ignore);
  ZnTypeMgr mgr(data[0] & 0x80 ? 3 : 5);
  char const id = kinds[data[0] % 3];
  unsigned char const source = formats[data[1] % 8];
  unsigned char const target = formats[data[2] % 8];
  auto const cmpOp = static_cast<unsigned short>(data[3] << 4);
  std::size_t const formatLength = data[4] % 16;
  std::size_t const split = data[5];
  data += 6;
  size -= 6;

  std::vector<char> format = Take(data, size, formatLength);
  format.push_back(0);
  std::vector<char> a = Take(data, size, split);
  std::vector<char> b = Take(data, size, size);
  ZnString text(a.data(), static_cast<unsigned short>(a.size()));
  void * const value = mgr.Create(id, 2);
  ZnString out;
  mgr.ScanFromZnString(id, value, text, format.data(), 1);
  mgr.PrintToZnString(id, out, value, format.data(), 2);

  auto const lengthA = static_cast<unsigned>(a.size());
  auto const lengthB = static_cast<unsigned>(b.size());
  std::vector<char> area(split);
  auto const room = static_cast<unsigned>(area.size());
  mgr.Translate(id, area.data(), target, room, a.data(), source, lengthA, 1);
  mgr.Translate(id, area.data(), target, room, value, 8, 0, 2);
  MemFile file(b.data(), lengthB);
  mgr.DiskLenGetFromMemFile(id, &file, source, 3);

  // A whole element loads, and comes out as it went in.
  std::vector<char> stored(mgr.DiskLenGet(id, value, 1, 2, 8));
  mgr.Store(id, stored.data(), value, 1, 2);
  mgr.Load(id, value, stored.data(), 1, 2);

  int error;
  if (lengthA > 0 && lengthB > 0)
    mgr.Cmp(id, lengthA, a.data(), lengthB, b.data(), cmpOp, 2, source, error);
  mgr.Delete(id, value, 2);
  return 0;
}
