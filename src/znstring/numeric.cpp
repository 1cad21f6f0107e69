#include "zanin.h"
#include "znchar.h"
#include "znoptions.h"
#include "znstring.h"
#include "znstring/number_read.h"
#include "znstring/number_text.h"
#include "znstring/units.h"

/// Numbers read from strings: casts, and the reads that tell whether there was a number.

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

/// The same for text that begins like a number.
template <class Number>
int ReadChecked(ZnString const & s, Number & out, int base) {
  out = 0;
  ZnChar const first(s.StrGet(), s.codeSet, s.language, 1);
  if (!first.IsDigit() && !(first == '-'))
    return -1;
  out = Read<Number>(s, base);
  return 0;
}

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

int ZnString::Atol(int & out) const { return ReadChecked(*this, out, kDecimal); }
int ZnString::Atoll(long long & out) const { return ReadChecked(*this, out, kDecimal); }
int ZnString::Strtol(int & out) const { return ReadChecked(*this, out, kByPrefix); }
int ZnString::Strtoll(long long & out) const { return ReadChecked(*this, out, kByPrefix); }
