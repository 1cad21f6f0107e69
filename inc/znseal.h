#pragma once

#include "znexport.h"

class ZnInt64;
class ZnObjId;
class ZnString;

/// A 48-bit unsigned number as three 16-bit words, the high one first. It has no null value.
///
/// Worked example: a seal made of the number 0x123456789ABC holds 0x1234, 0x5678 and 0x9ABC. It
/// is stored as the bytes 12 34 56 78 9A BC in every format, so that stored seals sort byte by
/// byte.
class ZANTMS_EXPORT ZnSeal {
public:
  unsigned short sealHigh = 0;   ///< bits 32 to 47
  unsigned short sealMiddle = 0; ///< bits 16 to 31
  unsigned short sealLow = 0;    ///< bits 0 to 15

  int operator==(ZnSeal const & other) const { return (*this != other) == 0; }
  /// Three-way: the difference of the first words that differ, the high ones first.
  int operator!=(ZnSeal const & other) const {
    if (sealHigh != other.sealHigh)
      return sealHigh - other.sealHigh;
    if (sealMiddle != other.sealMiddle)
      return sealMiddle - other.sealMiddle;
    return sealLow - other.sealLow;
  }

  /// Bits above 47 are dropped.
  void ConvertFrom(ZnInt64 const & number);
  void ConvertFrom(__int64 const & number);
  /// The object number; `block` is dropped.
  void ConvertFrom(ZnObjId const & object);
  /// Never negative.
  void ConvertTo(ZnInt64 & number) const;
  void ConvertTo(__int64 & number) const;

  /// Appends the number in decimal; gives `out`.
  ZnString & PrintToZnString(ZnString & out) const;
  /// Reads a number as `ZnInt64` does by "%S". An empty text gives 0, one that is no number a
  /// seal of all ones.
  void ScanFromZnString(ZnString const & in);
};

static_assert(sizeof(ZnSeal) == 6);
