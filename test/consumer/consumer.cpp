#include <zantms.h>

#include <zanbs.h>
#include <zanin.h>

#include <cstdio>
#include <cstring>

/// Uses each of the three libraries once. A header that is missing in the installed tree, or a
/// symbol that is not exported, does not get past the compiler and the linker.
int main() {
  ___ZnTypemgrContext(1);
  ZnTypeMgr * const mgr = DefaultTypeMgr();
  int const number = 0x01020304;
  unsigned char stored[4] = {};
  if (mgr == nullptr || mgr->Store(ZnINT_T, stored, &number, ZnFormatBigEndian, 1) != 4 ||
      std::memcmp(stored, "\1\2\3\4", 4) != 0) {
    std::puts("the type manager does not store");
    return 1;
  }
  int loaded = 0;
  if (LongStore(&loaded, stored, ZnFormatBigEndian, 1) != 4 || loaded != number) {
    std::puts("the base services do not load");
    return 1;
  }
  if (ZnLanguageContext::QueryCodeSet(1)->id != 1) {
    std::puts("the language component has no code set 1");
    return 1;
  }
  ZnString const text("consumer");
  ___ZnTypemgrContext(0);
  return text.Len() == 8 && DefaultTypeMgr() == nullptr ? 0 : 1;
}
