#pragma once

#include "query/bounds.h"
#include "query/null_form.h"
#include "znint64.h"
#include "zntypes/class_box.h"
#include "zntypes/fixed_storage.h"
#include "zntypes/nullable_rows.h"

/// Groups of the rows of ZnInt64 and its nullable kind.
///
/// Stored, the two words stand one after the other, the low one first in either byte order: the
/// big-endian 1 is 00 00 00 01 00 00 00 00.

namespace zntms {

struct Int64Codec {
  using Value = ZnInt64;
  static constexpr unsigned int kSize = 8;

  template <bool swapped>
  static void Write(char * at, Value const & value) {
    WriteNumber<swapped>(at, value.low);
    WriteNumber<swapped>(at + 4, value.high);
  }
  template <bool swapped>
  static void Read(Value & value, char const * at) {
    value.low = ReadNumber<unsigned int, swapped>(at);
    value.high = ReadNumber<int, swapped>(at + 4);
  }
};

struct Int64Text {
  using Value = ZnInt64;
  static void Write(ZnString & out, Value const & value) { value.PrintToZnString(out); }
  static void Read(Value & value, ZnString const & in) { value.ScanFromZnString(in); }
};

struct NullInt64Text {
  using Value = ZnNull_ZnInt64;
  static void Write(ZnString & out, Value const & value) { value.value.PrintToZnString(out); }
  static void Read(Value & value, ZnString const & in) {
    value = {0, 0};
    value.value.ScanFromZnString(in);
  }
};

ZnString & Int64Print(ZnString & out, void * value, char const * format, unsigned int count);
void * Int64Scan(void * value, ZnString & in, char const * format, unsigned int count);
unsigned int HashInt64(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error);
float BoundInt64(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out);
float BoundNullInt64(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                     unsigned int count, ZnIdxBounds * out);
int StepInt64(void * value, unsigned int length, unsigned char format, unsigned char what);

/// Where a number lies in the arithmetic of estimates: its words as doubles.
template <>
constexpr double PositionOf(ZnInt64 number) {
  return number.high * 4294967296.0 + number.low;
}

/// The bound row of a kind that is estimated by the `ZnInt64` that `read` makes of a key; `size` is
/// that of the whole constant in bytes.
template <class Read>
float BoundInt64Keys(ZnIdxBounds * area, unsigned short op, void const * value, unsigned int size,
                     ZnIdxBounds * out, Read read) {
  auto const [lo, hi] = ReadRange<ZnInt64>(area, read);
  double range = 0;
  if (area) {
    ZnInt64 const constant = read(value);
    double const position = PositionOf(constant);
    range = ZnEvalRange(op, position, position, PositionOf(lo), PositionOf(hi), 1.0);
    range = FixZeroRange(range, op, constant, lo, hi);
  }
  ZnBoundsSave(out, value, op, size);
  return static_cast<float>(range / (PositionOf(hi) - PositionOf(lo) + 1.0));
}

template <>
struct NullableKind<ZnInt64> {
  static ZnInt64 Read(Bytes at, unsigned char format) { return LoadOne<Int64Codec>(at, format); }
  static void Write(unsigned char * at, ZnInt64 number, unsigned char format) {
    StoreFixed<Int64Codec>(at, &number, format, 1);
  }
  static int Compare(ZnInt64 a, ZnInt64 b) { return Order(a, b); }
  static constexpr ZnTypeRow::HashFunc hash = &HashInt64;
  static int Step(ZnInt64 & number, unsigned char what) {
    return StepInt64(&number, 0, ZnFormatMemory, what);
  }
  /// 0, not the most negative number.
  static void SetLowest(ZnInt64 & number) { number = 0; }
};

inline constexpr RowText kInt64Text = {"%S", &Int64Print, &Int64Scan};
inline constexpr RowLife kInt64Life = kClassLife<ZnInt64>;
inline constexpr RowStorage kInt64Storage = kFixedStorage<Int64Codec>;
inline constexpr RowQuery kInt64Query = {&Int64Compare, &BoundInt64, &HashInt64};
inline constexpr RowBox kInt64Box = kClassBox<Int64Text>;
inline constexpr ZnTypeRow::StepFunc kInt64Step = &StepInt64;

inline constexpr RowText kNullInt64Text = NullableText<ZnInt64, &Int64Print, &Int64Scan>("%S");
inline constexpr RowLife kNullInt64Life = kNullLife<ZnInt64>;
inline constexpr RowStorage kNullInt64Storage = kNullStorage<ZnInt64>;
inline constexpr RowQuery kNullInt64Query = {&CompareNullables<ZnInt64>, &BoundNullInt64,
                                             &HashNullables<ZnInt64>};
inline constexpr RowBox kNullInt64Box = kClassBox<NullInt64Text>;
inline constexpr RowNull kNullInt64Null = kNull<ZnInt64>;
inline constexpr ZnTypeRow::StepFunc kNullInt64Step = &StepNull<ZnInt64>;

} // namespace zntms
