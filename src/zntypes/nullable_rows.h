#pragma once

#include "query/null_query.h"
#include "znstring/narrow_text.h"
#include "zntypes/class_box.h"
#include "zntypes/class_life.h"
#include "zntypes/number_rows.h"

/// Groups of the rows of nullable numbers: one template over the base kind.

namespace zntms {

// ---- Life and null: a new value is null ---------------------------------------------------------

template <class Number>
inline constexpr RowLife kNullLife = kClassLife<ZnNullable<Number>>;

template <class Number>
inline constexpr RowNull kNull = kClassNull<ZnNullable<Number>>;

// ---- Stored forms -------------------------------------------------------------------------------

template <class Number>
unsigned int StoreNullables(void * dst, void const * src, unsigned char format,
                            unsigned int count) {
  auto * at = static_cast<unsigned char *>(dst);
  auto const * const values = static_cast<ZnNullable<Number> const *>(src);
  for (std::size_t i = 0; i < count; ++i, at += kNullableSize<Number>)
    StoreNullable(at, values[i], format);
  return count * kNullableSize<Number>;
}

template <class Number>
unsigned int LoadNullables(void * dst, void const * src, unsigned char format, unsigned int count) {
  auto const * at = static_cast<Bytes>(src);
  auto * const values = static_cast<ZnNullable<Number> *>(dst);
  for (std::size_t i = 0; i < count; ++i, at += kNullableSize<Number>)
    values[i] = LoadNullable<Number>(at, format);
  return count * kNullableSize<Number>;
}

template <class Number>
unsigned int NullableNullSize(unsigned int count) {
  return count * kNullableSize<Number>;
}

template <class Number>
unsigned int NullableSize(void const *, unsigned char, unsigned char, unsigned int count) {
  return count * kNullableSize<Number>;
}

template <class Number>
unsigned int NullableFileSize(MemFile *, unsigned char, unsigned int count) {
  return count * kNullableSize<Number>;
}

template <class Number>
inline constexpr RowStorage kNullStorage = {
    &StoreNullables<Number>,
    &LoadNullables<Number>,
    &NullableNullSize<Number>,
    &NullableSize<Number>,
    &NullableFileSize<Number>,
    &Translate<&StoreNullables<Number>, &LoadNullables<Number>, &AssignValues<ZnNullable<Number>>,
               sizeof(ZnNullable<Number>)>};

// ---- Stepping -----------------------------------------------------------------------------------

/// A null steps to the lowest value, which is the NaN of all high bits for floats. Whatever comes
/// out is not null.
template <class Number>
int StepNull(void * value, unsigned int, unsigned char format, unsigned char what) {
  if (format != ZnFormatMemory || (what != 'M' && what != 'N'))
    return ZnErrNotSupported;
  auto & element = *static_cast<ZnNullable<Number> *>(value);
  bool const wasNull = element.isNull != 0;
  element.isNull = 0;
  if (!wasNull)
    return NullableKind<Number>::Step(element.value, what);
  NullableKind<Number>::SetLowest(element.value);
  return 0;
}

// ---- Text ---------------------------------------------------------------------------------------

/// One element, by the print row of the base kind.
template <class Number, ZnTypeRow::PrintFunc print>
ZnString & PrintNullable(ZnString & out, void * value, char const * format, unsigned int) {
  auto element = *static_cast<ZnNullable<Number> const *>(value);
  return element.isNull != 0 ? out = NullPrintString() : print(out, &element.value, format, 1);
}

/// A text that is empty or begins with the null print string is null; every other goes to the scan
/// row of the base kind, which leaves 0 if it is no number.
template <class Number, ZnTypeRow::ScanFunc scan>
void * ScanNullable(void * value, ZnString & in, char const * format, unsigned int) {
  if (value == nullptr)
    return value;
  auto & element = *static_cast<ZnNullable<Number> *>(value);
  element = ZnNullable<Number>();
  NarrowText const text(in);
  if (*text.CStr() == 0 || BeginsWithNullText(text))
    return value;
  scan(&element.value, in, format, 1);
  element.isNull = 0;
  return value;
}

template <class Number, ZnTypeRow::PrintFunc print, ZnTypeRow::ScanFunc scan>
constexpr RowText NullableText(char const * format) {
  return {format, &PrintNullable<Number, print>, &ScanNullable<Number, scan>};
}

inline constexpr RowText kNullCharText = NullableText<signed char, &CharPrint, &CharScan>("%c");
inline constexpr RowText kNullUcharText = NullableText<unsigned char, &CharPrint, &CharScan>("%c");
inline constexpr RowText kNullShortText = NullableText<short, &ShortPrint, &ShortScan>("%hd");
inline constexpr RowText kNullUshortText =
    NullableText<unsigned short, &ShortPrint, &ShortScan>("%hu");
inline constexpr RowText kNullIntText = NullableText<int, &LongPrint, &LongScan>("%d");
inline constexpr RowText kNullUnsignedText =
    NullableText<unsigned int, &LongPrint, &LongScan>("%u");
inline constexpr RowText kNullLongText = NullableText<int, &LongPrint, &LongScan>("%ld");
inline constexpr RowText kNullUlongText = NullableText<unsigned int, &LongPrint, &LongScan>("%lu");
inline constexpr RowText kNullFloatText = NullableText<float, &FloatPrint, &FloatScan>("%.17g");
inline constexpr RowText kNullDoubleText = NullableText<double, &DoublePrint, &DoubleScan>("%.17g");
inline constexpr RowText kNull8BText = NullableText<long long, &O_8BPrint, &O_8BScan>("%I64d");
inline constexpr RowText kNullU8BText =
    NullableText<unsigned long long, &O_8BPrint, &O_8BScan>("%I64u");

} // namespace zntms
