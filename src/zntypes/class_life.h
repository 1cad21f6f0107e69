#pragma once

#include "zntypes/row_parts.h"

#include <cstdint>
#include <cstring>
#include <new>

/// Life of the values of a class, shared by every row whose values are C++ objects.
///
/// One value (count 0 or 1) is allocated alone. An array stands behind a 64-bit word that holds
/// its count, and by that word `Delete` destroys it: for `CreateValues<ZnDate>(3)` the allocation
/// is 8 + 3 × 4 bytes, the result points to byte 8. The caller therefore gives `Delete` a count
/// on the same side of 1 as at `Create`; its exact value does not matter.
///
/// A row takes the whole group as `kClassLife<ZnDate>`.

namespace zntms {

using CountWord = std::uint64_t;

template <class Value>
void * CreateValues(unsigned int count) {
  static_assert(alignof(Value) <= sizeof(CountWord), "elements stand right behind the count word");
  if (count <= 1)
    return new Value();
  void * const block = ::operator new(sizeof(CountWord) + std::size_t(count) * sizeof(Value));
  CountWord const word = count;
  std::memcpy(block, &word, sizeof word);
  auto * const values = reinterpret_cast<Value *>(static_cast<char *>(block) + sizeof word);
  for (std::size_t i = 0; i < count; ++i)
    new (values + i) Value();
  return values;
}

template <class Value>
void * DeleteValues(void * value, unsigned int count) {
  if (value == nullptr)
    return nullptr;
  auto * const values = static_cast<Value *>(value);
  if (count <= 1) {
    delete values;
    return nullptr;
  }
  char * const block = static_cast<char *>(value) - sizeof(CountWord);
  CountWord word;
  std::memcpy(&word, block, sizeof word);
  for (std::size_t i = word; i-- > 0;)
    values[i].~Value();
  ::operator delete(block);
  return nullptr;
}

template <class Value>
void ConstructValues(void * value, unsigned int count, unsigned int) {
  auto * const values = static_cast<Value *>(value);
  for (std::size_t i = 0; i < count; ++i)
    new (values + i) Value();
}

template <class Value>
void DestructValues(void * value, unsigned int count, unsigned int) {
  auto * const values = static_cast<Value *>(value);
  for (std::size_t i = 0; i < count; ++i)
    values[i].~Value();
}

template <class Value>
void AssignValues(void * dst, void * src, unsigned int count, int same) {
  auto * const target = static_cast<Value *>(dst);
  auto const * const source = static_cast<Value const *>(src);
  for (std::size_t i = 0; i < count; ++i)
    target[i] = source[same != 0 ? 0 : i];
}

template <class Value>
void CopyValues(void * dst, void * src, unsigned int count, int same) {
  auto * const target = static_cast<Value *>(dst);
  auto const * const source = static_cast<Value const *>(src);
  for (std::size_t i = 0; i < count; ++i)
    new (target + i) Value(source[same != 0 ? 0 : i]);
}

template <class Value>
inline constexpr RowLife kClassLife = {&CreateValues<Value>,    &DeleteValues<Value>,
                                       &ConstructValues<Value>, &DestructValues<Value>,
                                       &AssignValues<Value>,    &CopyValues<Value>};

} // namespace zntms
