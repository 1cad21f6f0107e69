#pragma once

#include "zncodes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// What compare and hash rows ask of an array: how much of it a key holds, and its elements.

namespace zntms {

using Bytes = unsigned char const *;

/// Of `count` elements of `size` bytes each those that a value of `length` bytes holds. Length 0
/// stands for all of them. The first is always there; a further one is if it starts before the
/// end. So a key of 9 bytes holds three of five 4-byte elements.
inline unsigned int ElementsHeld(unsigned int length, unsigned int count, unsigned int size) {
  if (length == 0)
    return count;
  return std::min<std::uint64_t>(count, (std::uint64_t(length) + size - 1) / size);
}

/// Whether the elements lie the other way round than in memory. Every other low nibble than that
/// of big-endian order means that they can be read in place.
constexpr bool IsSwapped(unsigned char format) { return (format & 15) == ZnFormatBigEndian; }

/// Whether they lie as `memLen` lays them out. The low nibble alone tells; any but this one is a
/// stored form.
constexpr bool HasMemoryNibble(unsigned char format) { return (format & 15) == ZnFormatMemory; }

template <unsigned int size>
using UnsignedOfSize = std::conditional_t<
    size == 1, std::uint8_t,
    std::conditional_t<size == 2, std::uint16_t,
                       std::conditional_t<size == 4, std::uint32_t, std::uint64_t>>>;

template <class Word>
constexpr Word SwapBytes(Word word) {
  if constexpr (sizeof word == 2)
    return __builtin_bswap16(word);
  else if constexpr (sizeof word == 4)
    return __builtin_bswap32(word);
  else if constexpr (sizeof word == 8)
    return __builtin_bswap64(word);
  else
    return word;
}

/// A number at any address.
template <class Number, bool swapped>
Number ReadNumber(void const * at) {
  UnsignedOfSize<sizeof(Number)> word;
  std::memcpy(&word, at, sizeof word);
  if constexpr (swapped)
    word = SwapBytes(word);
  return std::bit_cast<Number>(word);
}

template <class Number>
Number ReadNumber(void const * at, unsigned char format) {
  return IsSwapped(format) ? ReadNumber<Number, true>(at) : ReadNumber<Number, false>(at);
}

} // namespace zntms
