#include <zantms.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

/// UTF-8 of any content: what decodes encodes again, and every length agrees.

namespace {

void Check(bool holds) {
  if (!holds)
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  std::vector<char> in(data, data + size);
  auto const length = static_cast<int>(size);
  std::vector<unsigned short> units(size);
  int const chars = ZnMultiByteStr2WCharStr(units.data(), length, in.data(), length);
  Check(chars == ZnMultiByteStr2WCharStr(nullptr, 0, in.data(), length));
  if (chars >= 0) {
    // One character after the other gives the same.
    std::size_t at = 0;
    for (int i = 0; i < chars; ++i) {
      unsigned short unit;
      int const bytes = ZnMultiByte2WChar(&unit, in.data() + at, size - at);
      Check(bytes > 0 && unit == units[static_cast<std::size_t>(i)]);
      at += static_cast<std::size_t>(bytes);
    }
    Check(at == size);
  }
  ZnString s;
  int const taken = ZnMBS2ZnString(in.data(), s, length);
  Check(taken >= -2 && taken <= length);
  char * out = nullptr;
  int bytes = 0;
  int const encoded = ZnString2MultiByteString(s, out, bytes);
  Check(encoded >= 0 && bytes == encoded + 1 && out[encoded] == 0);
  Check(encoded == ZnMBSLength(s, 65535));
  ZnString again;
  if (encoded < 32768)
    Check(ZnMBS2ZnString(out, again, encoded) == encoded);
  if (encoded < 32768)
    Check(s.EqualsIgnoreLanguage(again) && s.Len() == again.Len());
  std::vector<char> small(size / 2);
  ZnString2ZnMBS(s, small.data(), static_cast<int>(small.size()));
  s.SetCodeSet(1);
  ZnString2ZnMBS(s, small.data(), static_cast<int>(small.size()));
  delete[] out;
  return 0;
}
