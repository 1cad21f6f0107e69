#include "zantms.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

/// Numbers by any format, from any text and from any stored bytes: nothing outside the value is
/// touched, and what a row's own format prints reads back as the same value.
///
/// Input: a byte for the type, one for the form, then a format and a text with a zero byte between
/// them; the text serves as stored bytes too.

namespace {

constexpr char kIds[] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 14, 27, 28,
                         29, 30, 31, 32, 33, 34, 35, 36, 37, 42, 43, 44, 45};

void Require(bool holds) {
  if (!holds)
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  if (size < 3)
    return 0;
  ZnTypeMgr const mgr;
  char const id = kIds[data[0] % sizeof kIds];
  unsigned char const form = data[1] % 3 == 0 ? 8 : data[1] % 3;
  std::string const rest(reinterpret_cast<char const *>(data + 2), size - 2);
  std::string const format = rest.c_str();
  std::string const tail = format.size() < rest.size() ? rest.substr(format.size() + 1) : "";

  // On the heap, so that one byte too many is noticed.
  unsigned int const memLen = mgr.MemLenGet(id, 1);
  std::vector<unsigned char> value(memLen);
  mgr.ConstructorPtrGet(id)(value.data(), 1, 0);
  ZnString out;
  ZnString in(tail.c_str());
  mgr.PrintToZnString(id, out, value.data(), format.c_str(), 1);
  mgr.ScanFromZnString(id, value.data(), in, format.c_str(), 1);
  mgr.PrintToZnString(id, out, value.data(), format.c_str(), 1);
  Require(memLen == 1 || out.Len() <= 511);
  mgr.ScanFromZnString(id, value.data(), in, nullptr, 1);

  unsigned int const stored = mgr.DiskLenGet(id, nullptr, form, 1, 8);
  if (tail.size() >= stored && stored != 0) {
    std::vector<unsigned char> bytes(tail.begin(), tail.begin() + stored);
    mgr.Load(id, value.data(), bytes.data(), form, 1);
    std::vector<unsigned char> again(stored);
    Require(mgr.Store(id, again.data(), value.data(), form, 1) == stored);
    int error = 7;
    if (form != 8) {
      unsigned int const count = static_cast<unsigned int>(tail.size() / stored);
      std::vector<unsigned char> key(tail.begin(), tail.begin() + count * stored);
      mgr.Cmp(id, count * stored, key.data(), stored, bytes.data(), 0, count, form, error);
      Require(error == (count > 1 ? ZnErrIncomplete : 0));
      Require(mgr.Cmp(id, key.data(), key.data(), 0, count, form) == 0);
      unsigned short op = data[0] & 7;
      ZnIdxBounds area{bytes.data(), key.data(), 0, 0, 0, 0, 0};
      mgr.EvalAndBound(id, &area, op, bytes.data(), form, 1, nullptr, nullptr);
    }
  }
  if (id == ZnDOUBLE_T || id == Zn8B_T || id == ZnINT_T) {
    std::vector<unsigned char> copy(memLen);
    mgr.PrintToZnString(id, out, value.data(), nullptr, 1);
    mgr.ScanFromZnString(id, copy.data(), out, nullptr, 1);
    Require(mgr.Cmp(id, value.data(), copy.data(), 0, 1, 8) == 0);
  }
  return 0;
}
