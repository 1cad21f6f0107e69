#pragma once

#include "query/elements.h"
#include "zntypes/class_life.h"
#include "zntypes/translate.h"

/// Stored forms of classes whose every value takes the same number of bytes.
///
/// A kind says how one value moves, as a codec; the loops over arrays, the sizes and `Translate`
/// follow from it. The byte order is settled once for an array, so that each loop is the plain one.
///
///     struct ClassIdCodec {
///       using Value = ZnClassId;
///       static constexpr unsigned int kSize = 4;
///       template <bool swapped> static void Write(char * at, Value const & value);
///       template <bool swapped> static void Read(Value & value, char const * at);
///     };
///
/// and its row takes `kFixedStorage<ClassIdCodec>`.

namespace zntms {

template <bool swapped, class Number>
void WriteNumber(char * at, Number number) {
  if constexpr (swapped)
    number = SwapBytes(number);
  std::memcpy(at, &number, sizeof number);
}

template <class Codec>
unsigned int StoreFixed(void * dst, void const * src, unsigned char format, unsigned int count) {
  auto const store = [=]<bool swapped>(std::bool_constant<swapped>) {
    auto * at = static_cast<char *>(dst);
    auto const * value = static_cast<typename Codec::Value const *>(src);
    for (unsigned int i = 0; i < count; ++i, ++value, at += Codec::kSize)
      Codec::template Write<swapped>(at, *value);
  };
  IsSwapped(format) ? store(std::true_type()) : store(std::false_type());
  return count * Codec::kSize;
}

template <class Codec>
unsigned int LoadFixed(void * dst, void const * src, unsigned char format, unsigned int count) {
  auto const load = [=]<bool swapped>(std::bool_constant<swapped>) {
    auto * value = static_cast<typename Codec::Value *>(dst);
    auto const * at = static_cast<char const *>(src);
    for (unsigned int i = 0; i < count; ++i, ++value, at += Codec::kSize)
      Codec::template Read<swapped>(*value, at);
  };
  IsSwapped(format) ? load(std::true_type()) : load(std::false_type());
  return count * Codec::kSize;
}

template <class Codec>
unsigned int FixedNullSize(unsigned int count) {
  return count * Codec::kSize;
}

template <class Codec>
unsigned int FixedSize(void const *, unsigned char, unsigned char, unsigned int count) {
  return count * Codec::kSize;
}

template <class Codec>
unsigned int FixedFileSize(MemFile *, unsigned char, unsigned int count) {
  return count * Codec::kSize;
}

template <class Codec>
inline constexpr RowStorage kFixedStorage = {
    &StoreFixed<Codec>,
    &LoadFixed<Codec>,
    &FixedNullSize<Codec>,
    &FixedSize<Codec>,
    &FixedFileSize<Codec>,
    &Translate<&StoreFixed<Codec>, &LoadFixed<Codec>, &AssignValues<typename Codec::Value>,
               sizeof(typename Codec::Value)>};

/// One stored value.
template <class Codec>
typename Codec::Value LoadOne(void const * at, unsigned char format) {
  typename Codec::Value value;
  LoadFixed<Codec>(&value, at, format, 1);
  return value;
}

} // namespace zntms
