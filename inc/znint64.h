#pragma once

#include "_znnulty.h"
#include "znexport.h"

#include <bit>
#include <cstring>
#include <type_traits>

class ZnString;

/// A signed 64-bit integer as two 32-bit words, the low one first. It has no null value.
///
/// Worked example: `ZnInt64 a(0xFFFFFFFFu, 0); ++a;` leaves `low` 0 and `high` 1, and
/// `(a >> 4).Get8b()` is 268435456.
///
/// All arithmetic is two's complement modulo 2 to the power 64: it wraps, and nothing reports it.
/// Division truncates towards zero. Comparisons give 1 or 0. No operation is undefined for any
/// operands or shift counts.
class ZANTMS_EXPORT ZnInt64 {
public:
  unsigned int low; ///< bits 0 to 31
  int high;         ///< bits 32 to 63

  constexpr ZnInt64() : low(0), high(0) {}
  constexpr ZnInt64(ZnInt64 const &) = default;
  constexpr ZnInt64(int number)
      : low(static_cast<unsigned int>(number)), high(number < 0 ? -1 : 0) {}
  constexpr ZnInt64(unsigned int number) : low(number), high(0) {}
  constexpr ZnInt64(unsigned int lowWord, int highWord) : low(lowWord), high(highWord) {}
  constexpr ZnInt64(unsigned long long number) : ZnInt64() {
    if (std::is_constant_evaluated())
      *this = std::bit_cast<ZnInt64>(number);
    else // keeps both words one number for the compiler, so that loops over arrays vectorise
      std::memcpy(static_cast<void *>(this), &number, sizeof number);
  }
  constexpr ZnInt64(__int64 number) : ZnInt64(static_cast<unsigned long long>(number)) {}
  constexpr ZnInt64(unsigned long number) : ZnInt64(static_cast<unsigned long long>(number)) {}
  constexpr ZnInt64(long number) : ZnInt64(static_cast<unsigned long long>(number)) {}
  /// Keeps seven significant decimal digits, rounded, and drops those behind the decimal point:
  /// 123456789.0 gives 123456800, 99.99999999 gives 100. What is too large gives the largest
  /// value or its negation; a NaN gives 0.
  ZnInt64(double number);

  constexpr ZnInt64 & operator=(ZnInt64 const &) = default;
  constexpr ZnInt64 & operator=(int number) { return *this = ZnInt64(number); }
  constexpr ZnInt64 & operator=(unsigned int number) { return *this = ZnInt64(number); }
  constexpr ZnInt64 & operator=(__int64 number) { return *this = ZnInt64(number); }
  constexpr ZnInt64 & operator=(unsigned long long number) { return *this = ZnInt64(number); }
  constexpr ZnInt64 & operator=(long number) { return *this = ZnInt64(number); }
  constexpr ZnInt64 & operator=(unsigned long number) { return *this = ZnInt64(number); }

  /// Both words as one number; the same bits from both.
  constexpr __int64 Get8b() const { return static_cast<__int64>(GetU8b()); }
  constexpr unsigned long long GetU8b() const {
    if (std::is_constant_evaluated())
      return std::bit_cast<unsigned long long>(*this);
    unsigned long long number = 0;
    std::memcpy(&number, static_cast<void const *>(this), sizeof number);
    return number;
  }

  // ---- Arithmetic ------------------------------------------------------------------------------

  constexpr ZnInt64 operator+(ZnInt64 const & b) const { return GetU8b() + b.GetU8b(); }
  constexpr ZnInt64 operator-(ZnInt64 const & b) const { return GetU8b() - b.GetU8b(); }
  constexpr ZnInt64 operator*(ZnInt64 const & b) const { return GetU8b() * b.GetU8b(); }
  constexpr ZnInt64 operator-() const { return 0 - GetU8b(); }
  constexpr ZnInt64 operator/(ZnInt64 const & b) const { return Division(b, 0); }
  constexpr ZnInt64 operator%(ZnInt64 const & b) const { return Division(b, 1); }
  constexpr ZnInt64 operator&(ZnInt64 const & b) const { return GetU8b() & b.GetU8b(); }
  constexpr ZnInt64 operator|(ZnInt64 const & b) const { return GetU8b() | b.GetU8b(); }
  constexpr ZnInt64 operator~() const { return ~GetU8b(); }
  /// Repeats the sign bit: 64 steps or more give 0 or -1.
  constexpr ZnInt64 operator>>(unsigned int steps) const {
    return Get8b() >> (steps < 63 ? steps : 63);
  }
  /// 64 steps or more give 0.
  constexpr ZnInt64 operator<<(unsigned int steps) const {
    return steps < 64 ? GetU8b() << steps : 0;
  }

  // These change the object and give its new value.

  constexpr ZnInt64 operator+=(ZnInt64 const & b) { return *this = *this + b; }
  constexpr ZnInt64 operator-=(ZnInt64 const & b) { return *this = *this - b; }
  constexpr ZnInt64 operator*=(ZnInt64 const & b) { return *this = *this * b; }
  constexpr ZnInt64 operator/=(ZnInt64 const & b) { return *this = *this / b; }
  constexpr ZnInt64 operator%=(ZnInt64 const & b) { return *this = *this % b; }
  constexpr ZnInt64 operator>>=(unsigned int steps) { return *this = *this >> steps; }
  constexpr ZnInt64 operator<<=(unsigned int steps) { return *this = *this << steps; }
  constexpr ZnInt64 operator++() { return *this = GetU8b() + 1; }
  constexpr ZnInt64 operator--() { return *this = GetU8b() - 1; }

  /// The magnitude; the smallest value stays itself.
  constexpr ZnInt64 Abs() const { return high < 0 ? -*this : *this; }
  /// The quotient, or the remainder if `wantRemainder` is not 0; the remainder has the sign of the
  /// dividend. The smallest value divided by -1 is itself, remainder 0. A divisor of 0 is reported
  /// by `ZANT_assert`, and both results are then 0.
  constexpr ZnInt64 Division(ZnInt64 const & divisor, int wantRemainder) const {
    __int64 const by = divisor.Get8b();
    if (by == 0)
      return DivisionByZero();
    if (by == -1)
      return wantRemainder ? ZnInt64() : -*this;
    return wantRemainder ? Get8b() % by : Get8b() / by;
  }

  // ---- Comparison ------------------------------------------------------------------------------

  constexpr int operator==(ZnInt64 const & b) const { return Get8b() == b.Get8b(); }
  constexpr int operator!=(ZnInt64 const & b) const { return Get8b() != b.Get8b(); }
  constexpr int operator<(ZnInt64 const & b) const { return Get8b() < b.Get8b(); }
  constexpr int operator<=(ZnInt64 const & b) const { return Get8b() <= b.Get8b(); }
  constexpr int operator>(ZnInt64 const & b) const { return Get8b() > b.Get8b(); }
  constexpr int operator>=(ZnInt64 const & b) const { return Get8b() >= b.Get8b(); }

  // ---- Text ------------------------------------------------------------------------------------
  //
  // Directives: `%S`, `%d` and `%i` decimal, `%o` octal behind a 0, `%x` and `%X` hexadecimal
  // behind 0x or 0X. A null format stands for "%S".

  /// Appends to `out`, which is given back. A negative number is its sign, the prefix and the
  /// digits of its magnitude; the smallest value has no sign in octal and hexadecimal.
  ZnString & PrintToZnString(ZnString & out, char const * format = nullptr) const;
  /// The prefix of the text tells the base, which `%S` takes as it comes and the other directives
  /// insist on. A text that does not fit sets -1; an empty one leaves the value.
  void ScanFromZnString(ZnString const & in, char const * format = nullptr);

private:
  static ZnInt64 DivisionByZero();
};

static_assert(sizeof(ZnInt64) == 8 && alignof(ZnInt64) == 4);
static_assert(std::endian::native == std::endian::little, "the low word comes first");

/// The milliseconds since 1970-01-01 00:00 UTC on the clock of the base services; gives 0.
ZANTMS_EXPORT int GetSystemTimeInMSSinceTheEpoch(ZnInt64 & result);

using ZnNull_ZnInt64 = ZnNullable<ZnInt64>;

/// The compare row of `ZnInt64`, as those of `zncompare.h`.
ZANTMS_EXPORT int Int64Compare(unsigned char format, unsigned int lengthA, void * valueA,
                               unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                               unsigned int count, int & error);
