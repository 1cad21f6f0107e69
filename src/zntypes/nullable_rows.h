#pragma once

#include "query/null_query.h"
#include "zntypes/class_life.h"
#include "zntypes/empty_rows.h"

/// Groups of the rows of nullable numbers: one template over the base kind.

namespace zntms {

// ---- Life and null: a new value is null ---------------------------------------------------------

template <class Number>
inline constexpr RowLife kNullLife = kClassLife<ZnNullable<Number>>;

template <class Number>
int IsNullableNull(void * value) {
  return static_cast<ZnNullable<Number> const *>(value)->isNull;
}

template <class Number>
int SetNullableNull(void * value) {
  *static_cast<ZnNullable<Number> *>(value) = ZnNullable<Number>();
  return 0;
}

template <class Number>
inline constexpr RowNull kNull = {&IsNullableNull<Number>, &SetNullableNull<Number>};

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

inline constexpr RowText kNullCharText = EmptyText("%c");
inline constexpr RowText kNullUcharText = EmptyText("%c");
inline constexpr RowText kNullShortText = EmptyText("%hd");
inline constexpr RowText kNullUshortText = EmptyText("%hu");
inline constexpr RowText kNullIntText = EmptyText("%d");
inline constexpr RowText kNullUnsignedText = EmptyText("%u");
inline constexpr RowText kNullLongText = EmptyText("%ld");
inline constexpr RowText kNullUlongText = EmptyText("%lu");
inline constexpr RowText kNullFloatText = EmptyText("%.17g");
inline constexpr RowText kNullDoubleText = EmptyText("%.17g");
inline constexpr RowText kNull8BText = EmptyText("%I64d");
inline constexpr RowText kNullU8BText = EmptyText("%I64u");

// ---- Boxes --------------------------------------------------------------------------------------

template <class Number>
void * DefaultNullables(unsigned int count, int) {
  return CreateValues<ZnNullable<Number>>(count);
}

inline constexpr RowBox kNullCharBox = kEmptyBox;
inline constexpr RowBox kNullUcharBox = kEmptyBox;
inline constexpr RowBox kNullShortBox = kEmptyBox;
inline constexpr RowBox kNullUshortBox = kEmptyBox;
inline constexpr RowBox kNullIntBox = kEmptyBox;
inline constexpr RowBox kNullUnsignedBox = kEmptyBox;
inline constexpr RowBox kNullFloatBox = kEmptyBox;
inline constexpr RowBox kNullDoubleBox = kEmptyBox;
inline constexpr RowBox kNull8BBox = kEmptyBox;
inline constexpr RowBox kNullU8BBox = kEmptyBox;

} // namespace zntms
