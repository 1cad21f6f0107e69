#include "znseal.h"

#include "znident.h"
#include "znint64.h"
#include "znstring.h"

/// Conversions of seals: all go by way of the 48-bit number.

void ZnSeal::ConvertFrom(__int64 const & number) {
  sealHigh = static_cast<unsigned short>(number >> 32);
  sealMiddle = static_cast<unsigned short>(number >> 16);
  sealLow = static_cast<unsigned short>(number);
}

void ZnSeal::ConvertFrom(ZnInt64 const & number) { ConvertFrom(number.Get8b()); }

void ZnSeal::ConvertFrom(ZnObjId const & object) { ConvertFrom(ZnInt64(object.low, object.high)); }

void ZnSeal::ConvertTo(__int64 & number) const {
  number = static_cast<__int64>(sealHigh) << 32 | static_cast<__int64>(sealMiddle) << 16 | sealLow;
}

void ZnSeal::ConvertTo(ZnInt64 & number) const {
  __int64 value;
  ConvertTo(value);
  number = value;
}

ZnString & ZnSeal::PrintToZnString(ZnString & out) const {
  ZnInt64 number;
  ConvertTo(number);
  return number.PrintToZnString(out, "%S");
}

void ZnSeal::ScanFromZnString(ZnString const & in) {
  ZnInt64 number;
  number.ScanFromZnString(in, "%S");
  ConvertFrom(number);
}
