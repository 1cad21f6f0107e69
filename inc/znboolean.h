#pragma once

#include "znexport.h"

/// A truth value with a third state, null, which is below false.
///
/// Worked example: `ZnBoolean(5).state` is 1; after `SetNullValue` it is 255, `== 0` gives 0 and
/// `< 0` gives 1.
///
/// A value made through the class holds 0, 1 or 255. Other bytes can only come from stored data:
/// they count as true in `==`, and by their signed value in the order.
class ZANTMS_EXPORT ZnBoolean {
public:
  unsigned char state = 0; ///< 0 false, 1 true, 255 null

  constexpr ZnBoolean() = default;
  /// True for any number but 0.
  constexpr ZnBoolean(int number) : state(number != 0) {}
  constexpr ZnBoolean(ZnBoolean const &) = default;
  constexpr ZnBoolean & operator=(ZnBoolean const &) = default;
  constexpr ZnBoolean & operator=(int number) {
    state = number != 0;
    return *this;
  }

  /// Two nulls are equal, and a null differs from every value.
  constexpr int operator==(ZnBoolean const & other) const {
    return IsNullValue() || other.IsNullValue() ? state == other.state
                                                : (state != 0) == (other.state != 0);
  }
  /// 0 for null.
  constexpr int operator==(int number) const {
    return !IsNullValue() && (state != 0) == (number != 0);
  }
  constexpr int operator<(ZnBoolean const & other) const {
    if (IsNullValue() || other.IsNullValue())
      return IsNullValue() && !other.IsNullValue();
    return Signed() < other.Signed();
  }
  /// 1 for null.
  constexpr int operator<(int number) const { return IsNullValue() || Signed() < (number != 0); }
  constexpr int operator>(ZnBoolean const & other) const {
    if (IsNullValue() || other.IsNullValue())
      return !IsNullValue() && other.IsNullValue();
    return Signed() > other.Signed();
  }
  /// 0 for null.
  constexpr int operator>(int number) const { return !IsNullValue() && Signed() > (number != 0); }

  constexpr int IsNullValue() const { return state == 255; }
  /// Makes the value null and gives 0.
  constexpr int SetNullValue() {
    state = 255;
    return 0;
  }

private:
  constexpr signed char Signed() const { return static_cast<signed char>(state); }
};

static_assert(sizeof(ZnBoolean) == 1);
