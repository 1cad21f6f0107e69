#pragma once

#include "zntypes/row_parts.h"
#include "zntypes/translate.h"

#include "zanbs.h"

#include <cstring>
#include <new>

/// Groups of the rows of plain numbers: life and stored forms.
///
/// A plain number has no constructor that would matter, so that its life depends on its width
/// alone and kinds of one width share it: `kNumberLife<4>` serves eight rows. `Create` leaves wide
/// numbers as they are, but clears those of one byte; `Constructor` always clears. Stored forms
/// belong to the base service of the kind, which the group names.

namespace zntms {

// ---- Life, by the width in bytes ----------------------------------------------------------------

template <unsigned int width>
void * CreateNumbers(unsigned int count) {
  std::size_t const size = std::size_t(count) * width;
  void * const values = ::operator new(size);
  if (width == 1)
    std::memset(values, 0, size);
  return values;
}

inline void * DeleteNumbers(void * value, unsigned int) {
  ::operator delete(value);
  return nullptr;
}

template <unsigned int width>
void ConstructNumbers(void * value, unsigned int count, unsigned int) {
  if (count != 0)
    std::memset(value, 0, std::size_t(count) * width);
}

inline void DestructNumbers(void *, unsigned int, unsigned int) {}

template <unsigned int width>
void AssignNumbers(void * dst, void * src, unsigned int count, int same) {
  if (count == 0)
    return;
  if (same == 0) {
    std::memcpy(dst, src, std::size_t(count) * width);
    return;
  }
  unsigned char value[width];
  std::memcpy(value, src, width);
  auto * const target = static_cast<unsigned char *>(dst);
  for (std::size_t i = 0; i < count; ++i)
    std::memcpy(target + i * width, value, width);
}

/// The default of every number is 0, with null asked for or not.
template <unsigned int width>
void * DefaultNumbers(unsigned int count, int) {
  void * const values = CreateNumbers<width>(count);
  ConstructNumbers<width>(values, count, 0);
  return values;
}

template <unsigned int width>
inline constexpr RowLife kNumberLife = {&CreateNumbers<width>,    &DeleteNumbers,
                                        &ConstructNumbers<width>, &DestructNumbers,
                                        &AssignNumbers<width>,    &AssignNumbers<width>};

// ---- Stored forms -------------------------------------------------------------------------------

/// Numbers of a known width, wherever the file stands.
template <unsigned int width>
unsigned int NumberFileSize(MemFile *, unsigned char, unsigned int count) {
  return count * width;
}

/// Numbers whose width the base service tells; `mask` is what it sees of the format.
template <ZnTypeRow::SizeFunc sizeGet, unsigned char mask>
unsigned int ServiceFileSize(MemFile *, unsigned char format, unsigned int count) {
  return sizeGet(nullptr, ZnFormatMemory, format & mask, count);
}

template <ZnTypeRow::MoveFunc store, ZnTypeRow::MoveFunc load, unsigned int width>
inline constexpr ZnTypeRow::TranslateFunc kTranslateNumbers =
    &Translate<store, load, &AssignNumbers<width>, width>;

inline constexpr RowStorage kCharStorage = {
    &CharStore,   &CharStore,         &CharNullSizeGet,
    &CharSizeGet, &NumberFileSize<1>, kTranslateNumbers<&CharStore, &CharStore, 1>};
inline constexpr RowStorage kShortStorage = {
    &ShortStore,   &ShortStore,        &ShortNullSizeGet,
    &ShortSizeGet, &NumberFileSize<2>, kTranslateNumbers<&ShortStore, &ShortStore, 2>};
inline constexpr RowStorage kLongStorage = {
    &LongStore,   &LongStore,         &LongNullSizeGet,
    &LongSizeGet, &NumberFileSize<4>, kTranslateNumbers<&LongStore, &LongStore, 4>};
inline constexpr RowStorage k8BStorage = {
    &O_8BStore,   &O_8BStore,         &O_8BNullSizeGet,
    &O_8BSizeGet, &NumberFileSize<8>, kTranslateNumbers<&O_8BStore, &O_8BStore, 8>};
inline constexpr RowStorage kIntStorage = {&IntStore,
                                           &IntLoad,
                                           &IntNullSizeGet,
                                           &IntSizeGet,
                                           &ServiceFileSize<&IntSizeGet, 255>,
                                           kTranslateNumbers<&IntStore, &IntLoad, 4>};
inline constexpr RowStorage kUnsignedStorage = {
    &UnsignedStore,
    &UnsignedLoad,
    &IntNullSizeGet,
    &IntSizeGet,
    &ServiceFileSize<&IntSizeGet, 255>,
    kTranslateNumbers<&UnsignedStore, &UnsignedLoad, 4>};
inline constexpr RowStorage kFloatStorage = {&FloatStore,
                                             &FloatStore,
                                             &FloatNullSizeGet,
                                             &FloatSizeGet,
                                             &ServiceFileSize<&FloatSizeGet, 15>,
                                             kTranslateNumbers<&FloatStore, &FloatStore, 4>};
inline constexpr RowStorage kDoubleStorage = {&DoubleStore,
                                              &DoubleStore,
                                              &DoubleNullSizeGet,
                                              &DoubleSizeGet,
                                              &ServiceFileSize<&DoubleSizeGet, 15>,
                                              kTranslateNumbers<&DoubleStore, &DoubleStore, 8>};

// ---- Stepping -----------------------------------------------------------------------------------
//
// "M" and "N" step to the next value, "O" leaves an integer as it is and is refused by floats. The
// number 2 sets the lowest value in the order of the kind: the NaN of all high bits for floats.

inline constexpr unsigned char kSetLowest = 2;

/// For signed and unsigned integers of 1, 2, 4 and 8 bytes.
template <class Number>
int StepInteger(void * value, unsigned int length, unsigned char format, unsigned char what);
/// Through the normal numbers only: 0 steps to the smallest of them, a subnormal to it or to 0.
template <class Number>
int StepFloat(void * value, unsigned int length, unsigned char format, unsigned char what);

// ---- Text ---------------------------------------------------------------------------------------

/// Characters: as many as there are values, without separator; bytes that do not print as "0x07".
ZnString & CharPrint(ZnString & out, void * value, char const * format, unsigned int count);
void * CharScan(void * value, ZnString & in, char const * format, unsigned int count);
/// The others print and scan one number, or truth value; `count` is not used.
ZnString & ShortPrint(ZnString & out, void * value, char const * format, unsigned int count);
ZnString & LongPrint(ZnString & out, void * value, char const * format, unsigned int count);
ZnString & O_8BPrint(ZnString & out, void * value, char const * format, unsigned int count);
ZnString & FloatPrint(ZnString & out, void * value, char const * format, unsigned int count);
ZnString & DoublePrint(ZnString & out, void * value, char const * format, unsigned int count);
ZnString & BooleanPrint(ZnString & out, void * value, char const * format, unsigned int count);
void * ShortScan(void * value, ZnString & in, char const * format, unsigned int count);
void * LongScan(void * value, ZnString & in, char const * format, unsigned int count);
void * O_8BScan(void * value, ZnString & in, char const * format, unsigned int count);
void * FloatScan(void * value, ZnString & in, char const * format, unsigned int count);
void * DoubleScan(void * value, ZnString & in, char const * format, unsigned int count);
void * BooleanScan(void * value, ZnString & in, char const * format, unsigned int count);

constexpr RowText CharText(char const * format) { return {format, &CharPrint, &CharScan}; }
constexpr RowText ShortText(char const * format) { return {format, &ShortPrint, &ShortScan}; }
constexpr RowText LongText(char const * format) { return {format, &LongPrint, &LongScan}; }
constexpr RowText O_8BText(char const * format) { return {format, &O_8BPrint, &O_8BScan}; }
inline constexpr RowText kFloatText = {"%.17g", &FloatPrint, &FloatScan};
inline constexpr RowText kDoubleText = {"%.17g", &DoublePrint, &DoubleScan};

} // namespace zntms
