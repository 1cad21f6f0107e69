#pragma once

#include "_znnulty.h"
#include "znscalar.h"
#include "zntypes/class_box.h"
#include "zntypes/number_rows.h"

/// Boxes of numbers: what a number writes into a string and reads from one.
///
/// The two need not be inverse: `ZnNull_char` 65 writes the character "A" and reads digits, while
/// "o_char" 65 writes "65". `NumberBox<Number, Written, Source>` converts the number to `Written`,
/// of which the string is constructed, and back from the cast of the string to `Source`.

namespace zntms {

/// A number narrowed to another kind. A float is cut to an integer; what that cannot hold wraps,
/// and gives 0 where it is beyond 64 bits.
template <class Number, class Source>
Number NarrowNumber(Source source) {
  if constexpr (std::is_floating_point_v<Source> && std::is_integral_v<Number>) {
    constexpr double limit = 9223372036854775808.0;
    return source >= -limit && source < limit ? static_cast<Number>(static_cast<long long>(source))
                                              : Number(0);
  } else {
    return static_cast<Number>(source);
  }
}

template <class Number, class Written, class Source>
struct NumberBox {
  using Value = Number;
  static void Write(ZnString & out, Number const & number) {
    out += ZnString(static_cast<Written>(number));
  }
  static void Read(Number & number, ZnString const & in) {
    number = NarrowNumber<Number>(static_cast<Source>(in));
  }
};

/// The same for a kind with null, whose nulls the box frame has settled.
template <class Number, class Written, class Source>
struct NullableBox {
  using Value = ZnNullable<Number>;
  static void Write(ZnString & out, Value const & element) {
    out += ZnString(static_cast<Written>(element.value));
  }
  static void Read(Value & element, ZnString const & in) {
    element.value = NarrowNumber<Number>(static_cast<Source>(in));
    element.isNull = 0;
  }
};

/// What an element without a string is: 0.
template <unsigned int width>
void * CreateCleared(unsigned int count) {
  return DefaultNumbers<width>(count, 0);
}

template <class Number, class Written, class Source>
inline constexpr RowBox kNumberBox = {
    &BoxValues<NumberBox<Number, Written, Source>>,
    &UnboxValues<NumberBox<Number, Written, Source>, &CreateCleared<sizeof(Number)>>,
    &DefaultNumbers<sizeof(Number)>};

template <class Number, class Written, class Source>
inline constexpr RowBox kNullBox = kClassBox<NullableBox<Number, Written, Source>>;

inline constexpr RowBox kCharBox = {&CharConvertToZnString, &CharConvertFromZnString,
                                    &DefaultNumbers<1>};
inline constexpr RowBox kByteBox = {&O_U1BConvertToZnString, &O_U1BConvertFromZnString,
                                    &DefaultNumbers<1>};
inline constexpr RowBox kShortBox = {&ShortConvertToZnString, &ShortConvertFromZnString,
                                     &DefaultNumbers<2>};
inline constexpr RowBox kWordBox = {&WordConvertToZnString, &WordConvertFromZnString,
                                    &DefaultNumbers<2>};
inline constexpr RowBox kIntBox = kNumberBox<int, int, int>;
inline constexpr RowBox kUnsignedBox = kNumberBox<unsigned int, double, double>;
inline constexpr RowBox kFloatBox = kNumberBox<float, double, double>;
inline constexpr RowBox kDoubleBox = kNumberBox<double, double, double>;
inline constexpr RowBox k8BBox = kNumberBox<long long, long long, long long>;
inline constexpr RowBox kU8BBox = kNumberBox<unsigned long long, unsigned long long, long long>;

// Kinds of one byte write a character, and so does the unsigned one of two bytes.
inline constexpr RowBox kNullCharBox = kNullBox<signed char, char, int>;
inline constexpr RowBox kNullUcharBox = kNullBox<unsigned char, unsigned char, int>;
inline constexpr RowBox kNullShortBox = kNullBox<short, short, int>;
inline constexpr RowBox kNullUshortBox = kNullBox<unsigned short, unsigned short, int>;
inline constexpr RowBox kNullIntBox = kNullBox<int, int, int>;
inline constexpr RowBox kNullUnsignedBox = kNullBox<unsigned int, unsigned int, double>;
inline constexpr RowBox kNullFloatBox = kNullBox<float, double, double>;
inline constexpr RowBox kNullDoubleBox = kNullBox<double, double, double>;
inline constexpr RowBox kNull8BBox = kNullBox<long long, long long, long long>;
inline constexpr RowBox kNullU8BBox = kNullBox<unsigned long long, unsigned long long, long long>;

} // namespace zntms
