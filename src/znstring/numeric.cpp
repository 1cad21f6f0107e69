#include "zanin.h"
#include "znoptions.h"
#include "znstring.h"
#include "znstring/number_read.h"
#include "znstring/number_text.h"
#include "znstring/units.h"

/// Numbers read from strings.

using namespace zntms;

namespace {

constexpr int kDecimal = 10;
constexpr int kByPrefix = 0;

/// Two-byte text always goes by the prefix.
template <class Number>
Number Read(ZnString const & s, int base) {
  if (!s.text)
    return 0;
  if (WidthOf(s.codeSet) == 2)
    return ReadInteger<Number>(NarrowNumber(s.text).text, kByPrefix);
  return ReadInteger<Number>(s.text, base);
}

int CastBase() { return (___ZnTypeMgrOptions() & 1) != 0 ? kDecimal : kByPrefix; }

} // namespace

ZnString::operator short() const { return static_cast<short>(Read<int>(*this, CastBase())); }
ZnString::operator int() const { return Read<int>(*this, CastBase()); }
ZnString::operator long long() const { return Read<long long>(*this, CastBase()); }

ZnString::operator double() const {
  if (!text)
    return 0.0;
  if (WidthOf(codeSet) == 1)
    return ScanDouble({text, Len()});
  ZnString narrow(GetDefault8CodeSet(), GetDefaultLanguage());
  narrow += *this;
  return ScanDouble({narrow.text, narrow.Len()});
}
